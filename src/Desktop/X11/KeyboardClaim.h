// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

#include <QTimer>
#include <QWidget>

#include <memory>

class QWindow;

namespace sablequill {

/// Gets the keyboard for a managed window of this program. Asks the window manager to make it
/// active. Where that has not happened soon, a window of one clear pixel is shown, which the
/// manager makes active as it does any new window, and which hands the keyboard on.
///
/// The manager may have been slow only. It then makes the panel active first and that window after
/// it, and when a window goes that it holds for active, it makes another program's active. So that
/// window stays until it has had its turn and the panel is active again.
class KeyboardClaim {
public:
    /// The server outlives this object.
    explicit KeyboardClaim(const XServer& server);

    /// Does nothing while `window` has the keyboard, or is getting it.
    void start(xcb_window_t window);
    void stop();

private:
    bool hasKeyboard() const;
    bool isActive() const;
    bool isHelperDone();
    void ask() const;
    void check();
    void followFocus(const QWindow* focused);
    void handOn();
    void showHelper();

    const XServer& server;
    xcb_window_t window = noWindow;
    std::unique_ptr<QWidget> helper;
    bool wasHelperActive = false;
    int checks = 0;
    int checksManaged = 0;
    QTimer timer;
};

} // namespace sablequill
