// SPDX-License-Identifier: MIT
#include "UnmanagedKeeper.h"

namespace sablequill {

UnmanagedKeeper::UnmanagedKeeper(const XServer& server, PressWatch& presses)
    : stacking(server)
    , focus(server, presses)
{
    focus.onPressElsewhere = [this] {
        if (onPressElsewhere)
            onPressElsewhere();
    };
}

void UnmanagedKeeper::willShow(QWidget&) { }

void UnmanagedKeeper::didShow(QWidget& shown)
{
    window = static_cast<xcb_window_t>(shown.winId());
    keepOnTop(isKeptOnTop);
}

void UnmanagedKeeper::willHide()
{
    window = noWindow;
    stacking.keepOnTop(noWindow);
    focus.watchPresses(false);
    focus.giveBack();
}

void UnmanagedKeeper::keepOnTop(bool isKept)
{
    isKeptOnTop = isKept;
    stacking.keepOnTop(isKept ? window : noWindow);
}

void UnmanagedKeeper::takeKeyboard()
{
    if (window != noWindow && !focus.hasFocus())
        focus.take(window);
}

void UnmanagedKeeper::setDragging(bool isDragging)
{
    focus.isDragging = isDragging;
}

void UnmanagedKeeper::watchPresses(bool isWatching)
{
    focus.watchPresses(isWatching);
}

} // namespace sablequill
