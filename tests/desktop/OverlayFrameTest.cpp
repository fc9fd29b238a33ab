// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

namespace sablequill {
namespace {

constexpr int minimumWidth = 280;
constexpr int minimumHeight = 160;

/// Which edges are pulled: -1 the left or upper one, 1 the right or lower one.
struct Grip {
    int horizontal;
    int vertical;
};

class OverlayFrameTest : public OverlayTest {
protected:
    void expectCard(Area expected)
    {
        EXPECT_TRUE(waitUntil([&] { return overlay.card() == expected; })) << overlay.card();
        EXPECT_TRUE(waitUntil([&] { return savedFrame() == expected; }));
    }
    static Point placeOf(Grip grip, Area card)
    {
        // The tip of a corner lies outside of its rounding.
        const int inset = grip.horizontal != 0 && grip.vertical != 0 ? 7 : 2;
        const auto at = [inset](int side, int start, int length) {
            return side == 0 ? start + length / 2
                : side < 0   ? start + inset
                             : start + length - inset;
        };
        return {at(grip.horizontal, card.x, card.width), at(grip.vertical, card.y, card.height)};
    }
    void pull(Grip grip, Point way)
    {
        const Point from = placeOf(grip, overlay.card());
        mouse.drag(from, {from.x + way.x, from.y + way.y});
    }
    /// The card with the edges of the grip moved by that way.
    static Area pulled(Area card, Grip grip, Point way)
    {
        if (grip.horizontal < 0)
            card.x += way.x;
        if (grip.vertical < 0)
            card.y += way.y;
        card.width += grip.horizontal * way.x;
        card.height += grip.vertical * way.y;
        return card;
    }
};

constexpr Grip allGrips[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {-1, 1}, {1, 1}};

TEST_P(OverlayFrameTest, drag_background_movesByThePointersWay)
{
    startProgram();
    Area expected = savedCard;
    for (const bool isHeader : {true, false}) {
        const Point from = isHeader ? overlay.headerBackground() : overlay.footerBackground();
        mouse.drag(from, {from.x + 63, from.y + 41});
        expected.x += 63;
        expected.y += 41;
        expectCard(expected);
    }
}

TEST_P(OverlayFrameTest, drag_pastTheScreensEdge_isNotHeldBack)
{
    startProgram();
    const Point from = overlay.headerBackground();
    mouse.drag(from, {from.x - 350, from.y - 160});
    expectCard({savedCard.x - 350, savedCard.y - 160, savedCard.width, savedCard.height});
}

TEST_P(OverlayFrameTest, drag_eachEdgeAndCorner_resizesWithTheOppositeOneFixed)
{
    startProgram();
    Area expected = savedCard;
    for (const Grip grip : allGrips) {
        SCOPED_TRACE(testing::Message() << grip.horizontal << ' ' << grip.vertical);
        const Point outwards{grip.horizontal * 37, grip.vertical * 23};
        pull(grip, outwards);
        expected = pulled(expected, grip, outwards);
        expectCard(expected);
    }
}

TEST_P(OverlayFrameTest, drag_farInwards_stopsAtTheMinimumWithTheOppositeCornerFixed)
{
    for (const Grip grip : {Grip{-1, -1}, Grip{1, -1}, Grip{-1, 1}, Grip{1, 1}}) {
        SCOPED_TRACE(testing::Message() << grip.horizontal << ' ' << grip.vertical);
        user.writeSettings(settingsWith(savedCard));
        startProgram();
        pull(grip, {grip.horizontal * -300, grip.vertical * -200});
        expectCard({grip.horizontal < 0 ? savedCard.right() - minimumWidth : savedCard.x,
            grip.vertical < 0 ? savedCard.bottom() - minimumHeight : savedCard.y, minimumWidth,
            minimumHeight});
        endProgram();
    }
}

TEST_P(OverlayFrameTest, restart_threeTimes_isExactlyWhereItWas)
{
    startProgram();
    const Point from = overlay.footerBackground();
    mouse.drag(from, {from.x + 111, from.y + 57});
    const Area moved{savedCard.x + 111, savedCard.y + 57, savedCard.width, savedCard.height};
    expectCard(moved);
    pull({1, 1}, {53, 29});
    const Area left = pulled(moved, {1, 1}, {53, 29});
    expectCard(left);
    for (int restart = 0; restart < 3; ++restart) {
        endProgram();
        EXPECT_EQ(savedFrame(), left);
        startProgram();
        EXPECT_EQ(overlay.card(), left);
        EXPECT_TRUE(holdsFor([&] { return overlay.card() == left; }, watchTime));
    }
}

TEST_P(OverlayFrameTest, toggle_manyTimes_doesNotCreep)
{
    startProgram();
    for (int round = 0; round < 4; ++round) {
        pressToggle();
        ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
        pressToggle();
        ASSERT_TRUE(waitUntil([&] { return overlay.isShown(); }));
        EXPECT_EQ(overlay.card(), savedCard);
    }
}

TEST_P(OverlayFrameTest, start_savedOffEveryScreen_comesToTheNearestScreen)
{
    user.writeSettings(settingsWith({-3000, 200, 420, 280}));
    startProgram();
    expectCard({0, 200, 420, 280});
}

INSTANTIATE_FOR_ALL_SETUPS(OverlayFrameTest);

} // namespace
} // namespace sablequill
