// SPDX-License-Identifier: MIT
#include "WindowPlacement.h"

#include <algorithm>

namespace sablequill::WindowPlacement {
namespace {

/// Between the popover and what it stands at.
constexpr double gap = 6;

Rect inCorner(double width, double height, const ScreenFrames& screen)
{
    const Rect& area = screen.visibleFrame;
    const double above = screen.frame.maxY() - area.maxY();
    const double below = area.y - screen.frame.y;
    const double left = area.x - screen.frame.x;
    const double right = screen.frame.maxX() - area.maxX();
    const bool isBarBelow = below > above;
    const bool isBarLeft = left > right;
    return {isBarLeft ? area.x + gap : area.maxX() - gap - width,
        isBarBelow ? area.y + gap : area.maxY() - gap - height, width, height};
}

Rect at(double width, double height, const Rect& anchor, const ScreenFrames& screen)
{
    const bool isInUpperHalf = anchor.midY() >= screen.frame.midY();
    const double y = isInUpperHalf ? anchor.y - gap - height : anchor.maxY() + gap;
    return {anchor.midX() - width / 2, y, width, height};
}

} // namespace

Rect movedInto(const Rect& rect, const Rect& area)
{
    const double x = std::max(area.x, std::min(rect.x, area.maxX() - rect.width));
    const double y = std::min(area.maxY() - rect.height, std::max(rect.y, area.y));
    return {x, y, rect.width, rect.height};
}

Rect popover(
    double width, double height, const StatusItemAnchor& anchor, const ScreenFrames& screen)
{
    const Rect wished =
        anchor ? at(width, height, *anchor, screen) : inCorner(width, height, screen);
    return movedInto(wished, screen.visibleFrame);
}

Rect centered(double width, double height, const Rect& owner, const Rect& area)
{
    return movedInto({owner.midX() - width / 2, owner.midY() - height / 2, width, height}, area);
}

} // namespace sablequill::WindowPlacement
