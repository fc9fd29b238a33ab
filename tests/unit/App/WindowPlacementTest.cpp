// SPDX-License-Identifier: MIT
#include "WindowPlacement.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr Rect whole{0, 0, 1440, 900};
constexpr ScreenFrames barOnTop{whole, {0, 0, 1440, 870}};
constexpr ScreenFrames barBelow{whole, {0, 40, 1440, 860}};
constexpr ScreenFrames barLeft{whole, {60, 0, 1380, 900}};
constexpr ScreenFrames noBar{whole, whole};

struct PopoverRow {
    const char* name;
    StatusItemAnchor anchor;
    ScreenFrames screen;
    Rect expected;
};

class PopoverPlacement : public testing::TestWithParam<PopoverRow> { };

TEST_P(PopoverPlacement, popover_opensAtTheItemInsideTheScreen)
{
    const PopoverRow& row = GetParam();
    EXPECT_EQ(WindowPlacement::popover(280, 400, row.anchor, row.screen), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, PopoverPlacement,
    testing::Values(
        PopoverRow{"iconInTopBar", Rect{1000, 872, 24, 24}, barOnTop, {872, 466, 280, 400}},
        PopoverRow{"iconAtTheRightEdge", Rect{1410, 872, 24, 24}, barOnTop, {1160, 466, 280, 400}},
        PopoverRow{"iconAtTheLeftEdge", Rect{0, 872, 24, 24}, barOnTop, {0, 466, 280, 400}},
        PopoverRow{"iconInBottomBar", Rect{1000, 8, 24, 24}, barBelow, {872, 40, 280, 400}},
        PopoverRow{"clickInTopBar", Rect{700, 885, 0, 0}, barOnTop, {560, 470, 280, 400}},
        PopoverRow{"noAnchorBarOnTop", {}, barOnTop, {1154, 464, 280, 400}},
        PopoverRow{"noAnchorBarBelow", {}, barBelow, {1154, 46, 280, 400}},
        PopoverRow{"noAnchorBarLeft", {}, barLeft, {66, 494, 280, 400}},
        PopoverRow{"noAnchorNoBar", {}, noBar, {1154, 494, 280, 400}}),
    [](const auto& info) { return info.param.name; });

TEST(WindowPlacementTest, movedInto_tooLargeForTheArea_keepsTheTopLeftCornerVisible)
{
    EXPECT_EQ(WindowPlacement::movedInto({50, 50, 600, 500}, {0, 0, 400, 300}),
        (Rect{0, -200, 600, 500}));
}

TEST(WindowPlacementTest, centered_liesOverTheMiddleOfItsOwner)
{
    EXPECT_EQ(WindowPlacement::centered(480, 420, {510, 310, 420, 280}, barOnTop.visibleFrame),
        (Rect{480, 240, 480, 420}));
}

TEST(WindowPlacementTest, centered_ownerAtTheEdge_staysInside)
{
    EXPECT_EQ(WindowPlacement::centered(480, 420, {1400, 860, 280, 160}, barOnTop.visibleFrame),
        (Rect{960, 450, 480, 420}));
}

} // namespace
} // namespace sablequill
