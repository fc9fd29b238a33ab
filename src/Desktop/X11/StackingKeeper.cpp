// SPDX-License-Identifier: MIT
#include "StackingKeeper.h"

#include <algorithm>
#include <chrono>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// A frame holds its client directly or inside a wrapper.
constexpr int frameDepth = 2;

bool intersects(const xcb_get_geometry_reply_t& a, const xcb_get_geometry_reply_t& b)
{
    const auto right = [](const auto& g) { return g.x + g.width + 2 * g.border_width; };
    const auto bottom = [](const auto& g) { return g.y + g.height + 2 * g.border_width; };
    return a.x < right(b) && b.x < right(a) && a.y < bottom(b) && b.y < bottom(a);
}

XReply<xcb_get_geometry_reply_t> geometryOf(const XServer& server, xcb_window_t window)
{
    return XReply<xcb_get_geometry_reply_t>(xcb_get_geometry_reply(
        server.connection, xcb_get_geometry(server.connection, window), nullptr));
}

} // namespace

StackingKeeper::StackingKeeper(const XServer& server)
    : server(server)
    , wmState(server.atom("WM_STATE"))
    , activeWindowProperty(server.atom("_NET_ACTIVE_WINDOW"))
    , filter([this](const auto& event) { return filterEvent(event); })
{
    settle.setSingleShot(true);
    settle.setInterval(20ms);
    QObject::connect(&settle, &QTimer::timeout, &settle, [this] { restack(); });
    server.addEventMask(
        server.root, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE);
}

void StackingKeeper::keepOnTop(xcb_window_t next)
{
    window = next;
    if (window != noWindow)
        settle.start();
    else
        settle.stop();
}

bool StackingKeeper::filterEvent(const xcb_generic_event_t& event)
{
    if (window == noWindow)
        return false;
    bool mayObstruct = false;
    switch (eventType(event)) {
    case XCB_CONFIGURE_NOTIFY: {
        const auto& notify = eventAs<xcb_configure_notify_event_t>(event);
        mayObstruct = notify.event == server.root && notify.window != window;
        break;
    }
    case XCB_MAP_NOTIFY: {
        const auto& notify = eventAs<xcb_map_notify_event_t>(event);
        mayObstruct = notify.event == server.root && notify.window != window;
        break;
    }
    case XCB_CIRCULATE_NOTIFY:
        mayObstruct = true;
        break;
    case XCB_PROPERTY_NOTIFY: {
        const auto& notify = eventAs<xcb_property_notify_event_t>(event);
        mayObstruct = notify.window == server.root && notify.atom == activeWindowProperty;
        break;
    }
    default:
        break;
    }
    // Window managers restack in several requests: one look after the last of them is enough.
    if (mayObstruct && !settle.isActive())
        settle.start();
    return false;
}

void StackingKeeper::restack()
{
    const auto own = geometryOf(server, window);
    if (!own)
        return;
    const std::vector<xcb_window_t> stack = server.children(server.root);
    const auto above = std::find(stack.begin(), stack.end(), window);
    const bool isObstructed = above != stack.end()
        && std::any_of(above + 1, stack.end(),
            [&](xcb_window_t other) { return isObstructedBy(other, *own); });
    if (!isObstructed)
        return;
    const std::uint32_t mode = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(server.connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &mode);
    xcb_flush(server.connection);
}

bool StackingKeeper::isObstructedBy(xcb_window_t other, const xcb_get_geometry_reply_t& own) const
{
    const XReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        server.connection, xcb_get_window_attributes(server.connection, other), nullptr));
    if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE
        || attributes->_class == XCB_WINDOW_CLASS_INPUT_ONLY)
        return false;
    const auto geometry = geometryOf(server, other);
    if (!geometry || !intersects(*geometry, own) || server.isOwn(other))
        return false;
    // Frames of window managers are override-redirect too, but hold a managed window.
    return !attributes->override_redirect || isManaged(other, frameDepth);
}

bool StackingKeeper::isManaged(xcb_window_t other, int depth) const
{
    if (server.hasProperty(other, wmState))
        return true;
    if (depth == 0)
        return false;
    const std::vector<xcb_window_t> inner = server.children(other);
    return std::any_of(inner.begin(), inner.end(),
        [&](xcb_window_t child) { return isManaged(child, depth - 1); });
}

} // namespace sablequill
