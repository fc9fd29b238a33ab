// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

#include <QTimer>

namespace sablequill {

/// Keeps an override-redirect window above the windows of other programs: no window manager does it
/// for such a window. Works only on changes that the server reports.
///
/// Menus, tool tips and screen lockers of others (override-redirect windows that no window manager
/// manages) are left above it.
class StackingKeeper {
public:
    /// The server outlives this object.
    explicit StackingKeeper(const XServer& server);

    /// The window to keep up, or none.
    void keepOnTop(xcb_window_t window);

private:
    bool filterEvent(const xcb_generic_event_t& event);
    void restack();
    bool isObstructedBy(xcb_window_t other, const xcb_get_geometry_reply_t& own) const;
    bool isManaged(xcb_window_t window, int depth) const;

    const XServer& server;
    const xcb_atom_t wmState;
    const xcb_atom_t activeWindowProperty;
    xcb_window_t window = noWindow;
    QTimer settle;
    XEventFilter filter;
};

} // namespace sablequill
