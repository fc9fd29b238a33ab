// SPDX-License-Identifier: MIT
#include "FocusKeeper.h"

#include <chrono>
#include <xcb/xinput.h>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

std::uint8_t inputExtensionOpcode(xcb_connection_t* connection)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_input_id);
    return extension && extension->present ? extension->major_opcode : 0;
}

/// A request to hear of presses anywhere, as it goes over the wire.
struct RawPressSelection {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
    std::uint32_t mask = 0;
};

} // namespace

FocusKeeper::FocusKeeper(const XServer& server)
    : server(server)
    , wmState(server.atom("WM_STATE"))
    , inputOpcode(inputExtensionOpcode(server.connection))
    , filter([this](const auto& event) { return filterEvent(event); })
{
    // Long enough for a window manager to move the focus by itself after a press elsewhere.
    leave.setSingleShot(true);
    leave.setInterval(150ms);
    QObject::connect(&leave, &QTimer::timeout, &leave, [this] { giveBack(); });
    // Some window managers lose the focus when the window that has it is unmapped.
    verify.setSingleShot(true);
    verify.setInterval(120ms);
    QObject::connect(&verify, &QTimer::timeout, &verify, [this] { verifySuccession(); });
}

void FocusKeeper::take(xcb_window_t next)
{
    verify.stop();
    leave.stop();
    window = next;
    const xcb_window_t focused = server.focusedWindow();
    if (!server.isOwn(focused))
        previous = focused;
    server.setFocus(window);
    listenToPresses(true);
}

void FocusKeeper::giveBack()
{
    leave.stop();
    listenToPresses(false);
    if (!hasFocus())
        return;
    server.setFocus(successor());
    verify.start();
}

bool FocusKeeper::hasFocus() const
{
    return window != noWindow && server.isInside(server.focusedWindow(), window);
}

bool FocusKeeper::filterEvent(const xcb_generic_event_t& event)
{
    if (inputOpcode == 0 || eventType(event) != XCB_GE_GENERIC)
        return false;
    const auto& generic = eventAs<xcb_ge_generic_event_t>(event);
    if (generic.extension != inputOpcode || generic.event_type != XCB_INPUT_RAW_BUTTON_PRESS)
        return false;
    if (!isDragging && !server.isOwn(server.windowUnderPointer()))
        leave.start();
    return true;
}

void FocusKeeper::listenToPresses(bool isOn)
{
    if (inputOpcode == 0)
        return;
    RawPressSelection selection;
    if (isOn)
        selection.mask = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    xcb_discard_reply(server.connection,
        xcb_input_xi_select_events_checked(server.connection, server.root, 1, &selection.head)
            .sequence);
    xcb_flush(server.connection);
}

xcb_window_t FocusKeeper::successor() const
{
    const std::optional<xcb_window_t> active = server.activeWindow();
    if (active && !server.isOwn(*active) && server.isViewable(*active))
        return *active;
    if (previous > XCB_INPUT_FOCUS_POINTER_ROOT && server.isViewable(previous))
        return previous;
    return XCB_INPUT_FOCUS_POINTER_ROOT;
}

void FocusKeeper::verifySuccession()
{
    const xcb_window_t focused = server.focusedWindow();
    const xcb_window_t heir = successor();
    if (focused == heir || server.isInside(focused, heir))
        return;
    for (xcb_window_t at = focused; at > XCB_INPUT_FOCUS_POINTER_ROOT; at = server.parent(at)) {
        if (server.isOwn(at) || server.hasProperty(at, wmState))
            return;
    }
    server.setFocus(heir);
}

} // namespace sablequill
