// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

#include <QWidget>

#include <functional>

namespace sablequill {

/// What a panel's window needs beyond being mapped, in one kind of session: its place above all
/// others, the keyboard, and being in no list of windows.
class WindowKeeper {
public:
    virtual ~WindowKeeper() = default;

    /// What the window is to be made with, besides being a frameless one.
    virtual Qt::WindowFlags windowFlags() const = 0;
    /// Whether windows are blended in every session of this kind, without a sign of it on X.
    virtual bool isAlwaysComposited() const = 0;

    /// Around the mapping of the window, in this order.
    virtual void willShow(QWidget& window) = 0;
    virtual void didShow(QWidget& window) = 0;
    /// While the window is still mapped.
    virtual void willHide() = 0;

    /// Whether a window that is shown is kept above those of other programs.
    virtual void keepOnTop(bool isKept) = 0;
    virtual void takeKeyboard() = 0;
    /// While a drag that began in the window goes on.
    virtual void setDragging(bool isDragging) = 0;
    /// Whether presses elsewhere are reported also while the window does not have the keyboard.
    virtual void watchPresses(bool isWatching) = 0;

    /// Called at once after a press outside of the program's windows.
    std::function<void()> onPressElsewhere;
};

} // namespace sablequill
