// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

/// A rectangle in points, origin at the bottom left of the primary screen, y up; (x, y) is its
/// bottom-left corner.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    constexpr double midX() const { return x + width / 2; }
    constexpr double midY() const { return y + height / 2; }
    constexpr double maxX() const { return x + width; }
    constexpr double maxY() const { return y + height; }

    bool operator==(const Rect&) const = default;
};

} // namespace sablequill
