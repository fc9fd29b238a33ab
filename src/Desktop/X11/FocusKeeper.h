// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

#include <QTimer>

namespace sablequill {

/// Takes the keyboard for an override-redirect window and gives it back. A window manager neither
/// gives such a window the keyboard nor takes it away, not even when another window is clicked.
class FocusKeeper {
public:
    /// The server outlives this object.
    explicit FocusKeeper(const XServer& server);

    /// Gives the keyboard to a mapped window of this program.
    void take(xcb_window_t window);
    /// Gives the keyboard to the active window, or to the window that had it before; to be called
    /// while the own window is still mapped. Does nothing when the own window does not have it.
    void giveBack();
    bool hasFocus() const;

    /// While this is set, presses elsewhere do not count: they belong to a drag that began here.
    bool isDragging = false;

private:
    bool filterEvent(const xcb_generic_event_t& event);
    void listenToPresses(bool isOn);
    xcb_window_t successor() const;
    void verifySuccession();

    const XServer& server;
    const xcb_atom_t wmState;
    std::uint8_t inputOpcode = 0;
    xcb_window_t window = noWindow;
    xcb_window_t previous = noWindow;
    QTimer leave;
    QTimer verify;
    XEventFilter filter;
};

} // namespace sablequill
