// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

#include <QObject>

namespace sablequill {

/// Whether a compositor blends windows, followed while it starts and stops. A compositor owns the
/// selection _NET_WM_CM_S<n> of its screen (EWMH).
class CompositorWatch : public QObject {
    Q_OBJECT

public:
    /// The server outlives this object.
    explicit CompositorWatch(const XServer& server);

    bool isComposited() const { return composited; }

Q_SIGNALS:
    void compositedChanged(bool isComposited);

private:
    bool filterEvent(const xcb_generic_event_t& event);
    bool queryOwner() const;

    const XServer& server;
    xcb_atom_t selection;
    std::uint8_t fixesFirstEvent = 0;
    bool composited = false;
    XEventFilter filter;
};

} // namespace sablequill
