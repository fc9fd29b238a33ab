// SPDX-License-Identifier: MIT
#include "ManagedKeeper.h"

#include "HyprlandPin.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <chrono>
#include <utility>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t allWorkspaces = 0xffffffff;
/// EWMH: the request comes from what the user works with, not from the window itself.
constexpr std::uint32_t fromPager = 2;
/// EWMH: as against removing or toggling.
constexpr std::uint32_t addState = 1;

xcb_client_message_data_t messageData(std::initializer_list<std::uint32_t> values)
{
    xcb_client_message_data_t data{};
    std::copy(values.begin(), values.end(), std::begin(data.data32));
    return data;
}

} // namespace

ManagedKeeper::ManagedKeeper(const XServer& server, PressWatch& presses, HyprlandPin* pin)
    : server(server)
    , presses(presses)
    , pin(pin)
{
    QObject::connect(&presses, &PressWatch::pressedElsewhere, &check, [this] {
        if (isListening && !isDragged && onPressElsewhere)
            onPressElsewhere();
    });
    check.setSingleShot(true);
    check.setInterval(150ms);
    QObject::connect(&check, &QTimer::timeout, &check, [this] { takeByHelper(); });
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, &check,
        [this](const QWindow* focused) { followFocus(focused); });
}

ManagedKeeper::~ManagedKeeper()
{
    watchPresses(false);
}

void ManagedKeeper::willShow(QWidget& shown)
{
    window = static_cast<xcb_window_t>(shown.winId());
    // KWin takes the first type and puts it above an active full-screen window, mutter the second.
    // Compositors that tile leave a window alone for having the third one anywhere in the list.
    setAtoms("_NET_WM_WINDOW_TYPE",
        {"_KDE_NET_WM_WINDOW_TYPE_CRITICAL_NOTIFICATION", "_NET_WM_WINDOW_TYPE_NOTIFICATION",
            "_NET_WM_WINDOW_TYPE_UTILITY", "_NET_WM_WINDOW_TYPE_NORMAL"});
    if (shown.isVisible())
        return;
    // A window manager deletes both when a window is unmapped.
    setAtoms("_NET_WM_STATE",
        {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_TASKBAR",
            "_NET_WM_STATE_SKIP_PAGER"});
    xcb_change_property(server.connection, XCB_PROP_MODE_REPLACE, window,
        server.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1, &allWorkspaces);
}

void ManagedKeeper::didShow(QWidget&)
{
    // Once more for a window that was unmapped just before, whose properties were then deleted.
    requestStates("_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY");
    requestStates("_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER");
    sendToManager("_NET_WM_DESKTOP", messageData({allWorkspaces, fromPager}));
    xcb_flush(server.connection);
    if (pin)
        pin->pinPanels();
}

void ManagedKeeper::willHide()
{
    check.stop();
    dropHelper();
    watchPresses(false);
    window = noWindow;
}

void ManagedKeeper::keepOnTop(bool)
{
    // The compositor does, by the window's type.
}

void ManagedKeeper::takeKeyboard()
{
    if (window == noWindow || hasKeyboard())
        return;
    sendToManager("_NET_ACTIVE_WINDOW", messageData({fromPager, XCB_CURRENT_TIME, noWindow}));
    xcb_flush(server.connection);
    check.start();
}

void ManagedKeeper::setDragging(bool isDragging)
{
    isDragged = isDragging;
}

void ManagedKeeper::watchPresses(bool isWatching)
{
    if (std::exchange(isListening, isWatching) == isWatching)
        return;
    if (isWatching)
        presses.addListener();
    else
        presses.removeListener();
}

void ManagedKeeper::setAtoms(
    std::string_view property, std::initializer_list<std::string_view> values) const
{
    std::vector<xcb_atom_t> atoms;
    for (const std::string_view value : values)
        atoms.push_back(server.atom(value));
    xcb_change_property(server.connection, XCB_PROP_MODE_REPLACE, window, server.atom(property),
        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

void ManagedKeeper::sendToManager(
    std::string_view message, const xcb_client_message_data_t& data) const
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = server.atom(message);
    event.data = data;
    // The server reads as much as the longest event has.
    static_assert(sizeof event == 32);
    xcb_send_event(server.connection, 0, server.root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&event));
}

void ManagedKeeper::requestStates(std::string_view first, std::string_view second) const
{
    sendToManager("_NET_WM_STATE",
        messageData({addState, server.atom(first), server.atom(second), fromPager}));
}

bool ManagedKeeper::hasKeyboard() const
{
    return window != noWindow && server.isInside(server.focusedWindow(), window);
}

void ManagedKeeper::takeByHelper()
{
    if (window == noWindow || hasKeyboard())
        return;
    helper = std::make_unique<QWidget>(nullptr, Qt::Window | Qt::FramelessWindowHint);
    helper->setAttribute(Qt::WA_TranslucentBackground);
    helper->resize(1, 1);
    helper->show();
}

void ManagedKeeper::followFocus(const QWindow* focused)
{
    if (!helper)
        return;
    if (focused && focused == helper->windowHandle())
        server.setFocus(window);
    else if (hasKeyboard())
        dropHelper();
}

void ManagedKeeper::dropHelper()
{
    // Not at once: it may be in the middle of telling its focus.
    if (helper)
        helper.release()->deleteLater();
}

} // namespace sablequill
