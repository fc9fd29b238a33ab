// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <optional>
#include <string>
#include <vector>

namespace sablequill {

/// What a window says about itself; an empty member matches anything.
struct WindowIdentity {
    std::string className; ///< the second part of WM_CLASS
    std::string role; ///< WM_WINDOW_ROLE
};

/// The first window of that identity anywhere below the root, mapped or not.
std::optional<xcb_window_t> findWindow(const XConnection& x, const WindowIdentity& identity);

/// All of that identity, in no order that means anything.
std::vector<xcb_window_t> findWindows(const XConnection& x, const WindowIdentity& identity);

/// The root's children, lowest first.
std::vector<xcb_window_t> stackingOrder(const XConnection& x);
/// The root's child that is or holds the window; none for the root itself and for unknown windows.
std::optional<xcb_window_t> topLevelOf(const XConnection& x, xcb_window_t window);
/// Compares the top levels of both.
bool isAbove(const XConnection& x, xcb_window_t upper, xcb_window_t lower);

bool isViewable(const XConnection& x, xcb_window_t window);
/// Without its border, in the root's coordinates; nothing for a window that is gone.
std::optional<Area> areaOf(const XConnection& x, xcb_window_t window);
/// The part of the window that takes the mouse, in the root's coordinates: the extent of its input
/// shape, which is the whole window when it has none.
std::optional<Area> inputAreaOf(const XConnection& x, xcb_window_t window);

/// The window that has the keyboard; 0 and 1 stand for nothing and for the pointer's window.
xcb_window_t focusedWindow(const XConnection& x);
/// Whether the keyboard is in the window or in one below it.
bool hasKeyboard(const XConnection& x, xcb_window_t window);

} // namespace sablequill
