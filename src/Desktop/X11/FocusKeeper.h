// SPDX-License-Identifier: MIT
#pragma once

#include "PressWatch.h"
#include "XServer.h"

#include <QTimer>

#include <functional>

namespace sablequill {

/// Takes the keyboard for an override-redirect window and gives it back. A window manager neither
/// gives such a window the keyboard nor takes it away, not even when another window is clicked.
class FocusKeeper {
public:
    /// The server and the watch outlive this object.
    FocusKeeper(const XServer& server, PressWatch& presses);
    ~FocusKeeper();

    /// Gives the keyboard to a mapped window of this program.
    void take(xcb_window_t window);
    /// Gives the keyboard to another window of this program that the toolkit takes for the one with
    /// the keyboard, else to the active window, else to the window that had it before; to be called
    /// while the own window is still mapped. Does nothing when the own window does not have it.
    void giveBack();
    bool hasFocus() const;
    /// Whether presses elsewhere are reported also while the own window does not have the keyboard.
    void watchPresses(bool isWatching);

    /// Called at once after a press outside of the program's windows.
    std::function<void()> onPressElsewhere;

    /// While this is set, presses elsewhere do not count: they belong to a drag that began here.
    bool isDragging = false;

private:
    void reactToPressElsewhere();
    void listenToPresses();
    xcb_window_t successor() const;
    /// Whether nobody can type into what has the focus.
    bool isParked(xcb_window_t focused) const;
    void verifySuccession();

    const XServer& server;
    PressWatch& presses;
    const xcb_atom_t wmState;
    const xcb_atom_t supportingWmCheck;
    xcb_window_t window = noWindow;
    xcb_window_t previous = noWindow;
    bool isHeld = false;
    /// The focus was elsewhere already when it was to be given back.
    bool isTakenAway = false;
    bool isWatching = false;
    bool isListening = false;
    QTimer leave;
    QTimer verify;
};

} // namespace sablequill
