// SPDX-License-Identifier: MIT
#include "DesktopPlatform.h"

#include <algorithm>
#include <string_view>
#include <vector>

namespace sablequill {
namespace {

/// Seconds in which the overlay, which looks the same in both color schemes, is painted before
/// anybody waits for the session bus.
constexpr double headStart = 0.03;

/// What is said to a window manager about a window. This program hears it too, as it watches the
/// root, and the toolkit prints a line about each of these that is about a window of its own.
constexpr std::string_view messages[] = {"_KDE_WM_CHANGE_STATE", "_NET_CLOSE_WINDOW",
    "_NET_MOVERESIZE_WINDOW", "_NET_REQUEST_FRAME_EXTENTS", "_NET_RESTACK_WINDOW",
    "_NET_WM_DESKTOP", "_NET_WM_FULLSCREEN_MONITORS", "_NET_WM_MOVERESIZE"};

std::function<bool(const xcb_generic_event_t&)> managerMessages(const XServer& server)
{
    return [types = server.atoms(messages)](const xcb_generic_event_t& event) {
        return eventType(event) == XCB_CLIENT_MESSAGE
            && std::find(
                   types.begin(), types.end(), eventAs<xcb_client_message_event_t>(event).type)
            != types.end();
    };
}

} // namespace

DesktopPlatform::DesktopPlatform()
    : unheard(managerMessages(server))
{
    if (compositorBus && !session.hyprlandSocket)
        kwinPin.emplace(*compositorBus);
    mainQueue.after(headStart, [this] { colorScheme.start(); });
}

bool DesktopPlatform::isAvailable()
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    return xcb_connection_has_error(connection.get()) == 0;
}

Platform DesktopPlatform::platform()
{
    return {panels, screens, hotKeys.center(), loginItem, application, mainQueue, *shield};
}

} // namespace sablequill
