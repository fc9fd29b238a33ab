// SPDX-License-Identifier: MIT
#include "KeyboardClaim.h"

#include <QGuiApplication>
#include <QWindow>

#include <chrono>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

constexpr auto checkInterval = 150ms;
/// Three seconds: a desktop that is slower than that is not worked on.
constexpr int mostChecks = 20;
/// A manager that makes a window active which it takes on does so in one go. It may be looked at
/// in the middle of that.
constexpr int checksUntilRefused = 2;

} // namespace

KeyboardClaim::KeyboardClaim(const XServer& server)
    : server(server)
{
    timer.setInterval(checkInterval);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { check(); });
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &timer,
        [this](const QWindow* focused) { followFocus(focused); });
}

void KeyboardClaim::start(xcb_window_t next)
{
    if (window != next)
        stop();
    window = next;
    if (hasKeyboard())
        return;
    checks = 0;
    ask();
    timer.start();
}

void KeyboardClaim::stop()
{
    timer.stop();
    checks = checksManaged = 0;
    wasHelperActive = false;
    // Not at once: it may be in the middle of telling its focus.
    if (helper)
        helper.release()->deleteLater();
}

bool KeyboardClaim::hasKeyboard() const
{
    return server.isInside(server.focusedWindow(), window);
}

bool KeyboardClaim::isActive() const
{
    return hasKeyboard() && server.activeWindow() == window;
}

void KeyboardClaim::ask() const
{
    server.sendToManager(window, "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME, noWindow});
    xcb_flush(server.connection);
}

void KeyboardClaim::check()
{
    ++checks;
    const bool isDone = isActive() && (!helper || isHelperDone());
    if (isDone || checks > mostChecks)
        stop();
    else if (!helper && !hasKeyboard())
        showHelper();
    else if (!hasKeyboard())
        // The server refuses a window that is not mapped yet.
        followFocus(QGuiApplication::focusWindow());
}

bool KeyboardClaim::isHelperDone()
{
    if (wasHelperActive)
        return true;
    const auto id = static_cast<xcb_window_t>(helper->winId());
    if (server.hasProperty(id, server.atom("WM_STATE")))
        ++checksManaged;
    return checksManaged > checksUntilRefused;
}

void KeyboardClaim::followFocus(const QWindow* focused)
{
    if (helper && focused && focused == helper->windowHandle())
        handOn();
}

void KeyboardClaim::handOn()
{
    wasHelperActive = true;
    // mutter takes the focus for the sign of the active window, KWin puts it back where it was.
    server.setFocus(window);
    ask();
}

void KeyboardClaim::showHelper()
{
    helper = std::make_unique<QWidget>(nullptr, Qt::Window | Qt::FramelessWindowHint);
    helper->setAttribute(Qt::WA_TranslucentBackground);
    helper->resize(1, 1);
    helper->show();
}

} // namespace sablequill
