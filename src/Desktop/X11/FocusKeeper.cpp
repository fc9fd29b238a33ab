// SPDX-License-Identifier: MIT
#include "FocusKeeper.h"

#include <QGuiApplication>
#include <QWindow>

#include <chrono>
#include <utility>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

} // namespace

FocusKeeper::FocusKeeper(const XServer& server, PressWatch& presses)
    : server(server)
    , presses(presses)
    , wmState(server.atom("WM_STATE"))
    , supportingWmCheck(server.atom("_NET_SUPPORTING_WM_CHECK"))
{
    QObject::connect(
        &presses, &PressWatch::pressedElsewhere, &leave, [this] { reactToPressElsewhere(); });
    // Long enough for a window manager to move the focus by itself after a press elsewhere.
    leave.setSingleShot(true);
    leave.setInterval(150ms);
    QObject::connect(&leave, &QTimer::timeout, &leave, [this] { giveBack(); });
    // Some window managers lose the focus when the window that has it is unmapped.
    verify.setSingleShot(true);
    verify.setInterval(120ms);
    QObject::connect(&verify, &QTimer::timeout, &verify, [this] { verifySuccession(); });
}

FocusKeeper::~FocusKeeper()
{
    isHeld = isWatching = false;
    listenToPresses();
}

void FocusKeeper::take(xcb_window_t next)
{
    verify.stop();
    leave.stop();
    window = next;
    const xcb_window_t focused = server.focusedWindow();
    // The Settings window gets it back like one of another program.
    if (!server.isOwnPanel(focused))
        previous = focused;
    server.setFocus(window);
    isHeld = true;
    listenToPresses();
}

void FocusKeeper::giveBack()
{
    leave.stop();
    const bool wasHeld = std::exchange(isHeld, false);
    listenToPresses();
    isTakenAway = !hasFocus();
    if (!isTakenAway)
        server.setFocus(successor());
    if (wasHeld || !isTakenAway)
        verify.start();
}

bool FocusKeeper::hasFocus() const
{
    return window != noWindow && server.isInside(server.focusedWindow(), window);
}

void FocusKeeper::watchPresses(bool next)
{
    isWatching = next;
    listenToPresses();
}

void FocusKeeper::listenToPresses()
{
    const bool listens = isHeld || isWatching;
    if (std::exchange(isListening, listens) == listens)
        return;
    if (listens)
        presses.addListener();
    else
        presses.removeListener();
}

void FocusKeeper::reactToPressElsewhere()
{
    if (!isListening || isDragging)
        return;
    if (isHeld)
        leave.start();
    if (onPressElsewhere)
        onPressElsewhere();
}

xcb_window_t FocusKeeper::successor() const
{
    // Another window of this program that is being activated: the window manager's part may still
    // be on its way, and would come too late.
    const QWindow* next = QGuiApplication::focusWindow();
    if (next && next->winId() != window && next->isVisible())
        return static_cast<xcb_window_t>(next->winId());
    const std::optional<xcb_window_t> active = server.activeWindow();
    if (active && !server.isOwnPanel(*active) && server.isViewable(*active))
        return *active;
    if (previous > XCB_INPUT_FOCUS_POINTER_ROOT && server.isViewable(previous))
        return previous;
    return XCB_INPUT_FOCUS_POINTER_ROOT;
}

bool FocusKeeper::isParked(xcb_window_t focused) const
{
    return focused <= XCB_INPUT_FOCUS_POINTER_ROOT || focused == server.root
        || focused == server.windowProperty(server.root, supportingWmCheck);
}

void FocusKeeper::verifySuccession()
{
    const xcb_window_t focused = server.focusedWindow();
    const xcb_window_t heir = successor();
    if (focused == heir || server.isInside(focused, heir))
        return;
    // i3 parks the keyboard on its own window when the server refuses what it asks for, since it
    // says an earlier time than the panel did. Whoever else has taken it keeps it; so does, when
    // there is no heir, a window that no manager has given a state.
    const bool isInherited = heir > XCB_INPUT_FOCUS_POINTER_ROOT;
    if ((isTakenAway || !isInherited) && !isParked(focused))
        return;
    for (xcb_window_t at = focused; at > XCB_INPUT_FOCUS_POINTER_ROOT; at = server.parent(at)) {
        if (server.isOwn(at) || server.hasProperty(at, wmState))
            return;
    }
    server.setFocus(heir);
}

} // namespace sablequill
