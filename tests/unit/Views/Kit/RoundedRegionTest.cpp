// SPDX-License-Identifier: MIT
#include "RoundedRegion.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sablequill {
namespace {

const QRect bounds(10, 20, 100, 60);

TEST(RoundedRegion, bounds_anyRadius_areTheRectangle)
{
    for (const int radius : {0, 5, 8, 14, 30})
        EXPECT_EQ(roundedRegion(bounds, radius).boundingRect(), bounds) << radius;
}

TEST(RoundedRegion, radius_none_isTheRectangle)
{
    EXPECT_EQ(roundedRegion(bounds, 0), QRegion(bounds));
}

TEST(RoundedRegion, corners_allFour_areCutOffAlike)
{
    const QRegion region = roundedRegion(bounds, 14);
    for (int along = 0; along < 16; ++along)
        for (int across = 0; across < 16; ++across) {
            const bool isInside = region.contains(bounds.topLeft() + QPoint(along, across));
            EXPECT_EQ(region.contains(bounds.topRight() + QPoint(-along, across)), isInside);
            EXPECT_EQ(region.contains(bounds.bottomLeft() + QPoint(along, -across)), isInside);
            EXPECT_EQ(region.contains(bounds.bottomRight() + QPoint(-along, -across)), isInside);
        }
}

TEST(RoundedRegion, corner_pixels_areThoseWithinTheArc)
{
    constexpr int radius = 14;
    const QRegion region = roundedRegion(bounds, radius);
    for (int y = 0; y < radius; ++y)
        for (int x = 0; x < radius; ++x) {
            const double distance = std::hypot(radius - x - 0.5, radius - y - 0.5);
            // The pixels that the arc itself passes through may be either.
            if (std::abs(distance - radius) < 0.75)
                continue;
            EXPECT_EQ(region.contains(bounds.topLeft() + QPoint(x, y)), distance < radius)
                << x << ' ' << y;
        }
}

} // namespace
} // namespace sablequill
