// SPDX-License-Identifier: MIT
#pragma once

#include "FocusKeeper.h"
#include "StackingKeeper.h"
#include "WindowKeeper.h"

namespace sablequill {

/// In an X11 session: an override-redirect window, the only kind that every window manager leaves
/// above a focused full-screen window. What a window manager would do for it is done here.
class UnmanagedKeeper final : public WindowKeeper {
public:
    /// The server and the watch outlive the keeper.
    UnmanagedKeeper(const XServer& server, PressWatch& presses);

    Qt::WindowFlags windowFlags() const override { return Qt::BypassWindowManagerHint; }
    bool isAlwaysComposited() const override { return false; }
    void willShow(QWidget& window) override;
    void didShow(QWidget& window) override;
    void willHide() override;
    void keepOnTop(bool isKept) override;
    void takeKeyboard() override;
    void setDragging(bool isDragging) override;
    void watchPresses(bool isWatching) override;

private:
    StackingKeeper stacking;
    FocusKeeper focus;
    xcb_window_t window = noWindow;
    bool isKeptOnTop = false;
};

} // namespace sablequill
