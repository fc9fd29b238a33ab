// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

/// The saved frame of the overlay panel: points, origin at the bottom left of the primary screen,
/// y up; (x, y) is the frame's bottom-left corner.
struct OverlayFrame {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    bool operator==(const OverlayFrame&) const = default;
};

} // namespace sablequill
