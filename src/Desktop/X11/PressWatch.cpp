// SPDX-License-Identifier: MIT
#include "PressWatch.h"

#include <xcb/xinput.h>

namespace sablequill {
namespace {

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

PressWatch::PressWatch(const XServer& server)
    : server(server)
    , inputOpcode(inputExtensionOpcode(server.connection))
    , filter([this](const auto& event) { return filterEvent(event); })
{
}

void PressWatch::addListener()
{
    if (++listeners == 1)
        select();
}

void PressWatch::removeListener()
{
    if (--listeners == 0)
        select();
}

bool PressWatch::filterEvent(const xcb_generic_event_t& event)
{
    if (inputOpcode == 0 || eventType(event) != XCB_GE_GENERIC)
        return false;
    const auto& generic = eventAs<xcb_ge_generic_event_t>(event);
    if (generic.extension == inputOpcode && generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS
        && !server.isOwn(server.windowUnderPointer()))
        Q_EMIT pressedElsewhere();
    return false;
}

void PressWatch::select() const
{
    if (inputOpcode == 0)
        return;
    RawPressSelection selection;
    if (listeners > 0)
        selection.mask = XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    xcb_discard_reply(server.connection,
        xcb_input_xi_select_events_checked(server.connection, server.root, 1, &selection.head)
            .sequence);
    xcb_flush(server.connection);
}

} // namespace sablequill
