// SPDX-License-Identifier: MIT
#include "CompositorWatch.h"

#include <string>
#include <xcb/xfixes.h>

namespace sablequill {

CompositorWatch::CompositorWatch(const XServer& server)
    : server(server)
    , selection(server.atom("_NET_WM_CM_S" + std::to_string(server.screenNumber)))
    , filter([this](const auto& event) { return filterEvent(event); })
{
    const auto* extension = xcb_get_extension_data(server.connection, &xcb_xfixes_id);
    if (extension && extension->present) {
        fixesFirstEvent = extension->first_event;
        xcb_xfixes_select_selection_input(server.connection, server.root, selection,
            XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    }
    composited = queryOwner();
}

bool CompositorWatch::filterEvent(const xcb_generic_event_t& event)
{
    if (fixesFirstEvent == 0 || eventType(event) != fixesFirstEvent + XCB_XFIXES_SELECTION_NOTIFY)
        return false;
    const auto& notify = eventAs<xcb_xfixes_selection_notify_event_t>(event);
    if (notify.selection != selection)
        return false;
    const bool isComposited = notify.owner != noWindow;
    if (isComposited != composited) {
        composited = isComposited;
        Q_EMIT compositedChanged(isComposited);
    }
    return false;
}

bool CompositorWatch::queryOwner() const
{
    const XReply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        server.connection, xcb_get_selection_owner(server.connection, selection), nullptr));
    return reply && reply->owner != noWindow;
}

} // namespace sablequill
