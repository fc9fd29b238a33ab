// SPDX-License-Identifier: MIT
#pragma once

#include <ostream>

namespace sablequill {

/// Pixels, origin at the top left of the screen, y down.
struct Point {
    int x = 0;
    int y = 0;

    bool operator==(const Point&) const = default;
};

/// Pixels, origin at the top left of the screen, y down.
struct Area {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    Point center() const { return {x + width / 2, y + height / 2}; }
    int right() const { return x + width; }
    int bottom() const { return y + height; }

    bool operator==(const Area&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, const Point& point)
{
    return stream << '(' << point.x << ", " << point.y << ')';
}

inline std::ostream& operator<<(std::ostream& stream, const Area& area)
{
    return stream << area.width << 'x' << area.height << " at " << Point{area.x, area.y};
}

} // namespace sablequill
