// SPDX-License-Identifier: MIT
#pragma once

#include "Screens.h"
#include "StatusItem.h"

/// Where the program's own windows open. Points, bottom-left origin.
namespace sablequill::WindowPlacement {

/// `rect` moved, and not resized, into `area`: to its left or top edge where it does not fit.
Rect movedInto(const Rect& rect, const Rect& area);

/// A popover of the given size at the status item: below it in the upper half of the screen, above
/// it otherwise. Without an anchor in the corner of the screen nearest to its bar (the top right
/// one where there is none).
Rect popover(
    double width, double height, const StatusItemAnchor& anchor, const ScreenFrames& screen);

/// A window of the given size over the middle of `owner`.
Rect centered(double width, double height, const Rect& owner, const Rect& area);

} // namespace sablequill::WindowPlacement
