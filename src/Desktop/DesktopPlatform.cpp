// SPDX-License-Identifier: MIT
#include "DesktopPlatform.h"

namespace sablequill {
namespace {

/// Openbox tells each window of its state in a way that other window managers gave up.
bool isStateMessage(const xcb_generic_event_t& event, xcb_atom_t stateChange)
{
    return eventType(event) == XCB_CLIENT_MESSAGE
        && eventAs<xcb_client_message_event_t>(event).type == stateChange;
}

} // namespace

DesktopPlatform::DesktopPlatform()
    : unknownMessages([stateChange = server.atom("_KDE_WM_CHANGE_STATE")](
                          const auto& event) { return isStateMessage(event, stateChange); })
{
}

bool DesktopPlatform::isAvailable()
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    return xcb_connection_has_error(connection.get()) == 0;
}

Platform DesktopPlatform::platform()
{
    return {panels, screens, hotKeys.center(), loginItem, application, mainQueue};
}

} // namespace sablequill
