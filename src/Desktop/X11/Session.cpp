// SPDX-License-Identifier: MIT
#include "Session.h"

#include "HyprlandSocket.h"
#include "XServer.h"

#include <QByteArray>

namespace sablequill {
namespace {

bool hasExtension(xcb_connection_t* connection, std::string_view name)
{
    const auto cookie =
        xcb_query_extension(connection, static_cast<std::uint16_t>(name.size()), name.data());
    const XReply<xcb_query_extension_reply_t> reply(
        xcb_query_extension_reply(connection, cookie, nullptr));
    return reply && reply->present != 0;
}

bool isWaylandSession(const XServer& server)
{
    // Such a server says so itself since its version 23.1; before that the session has to.
    return hasExtension(server.connection, "XWAYLAND")
        || qEnvironmentVariableIsSet("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland";
}

} // namespace

Session Session::of(const XServer& server)
{
    if (!isWaylandSession(server))
        return {};
    return {.isWayland = true, .hyprlandSocket = HyprlandSocket::ofSession()};
}

} // namespace sablequill
