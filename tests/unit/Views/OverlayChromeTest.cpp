// SPDX-License-Identifier: MIT
#include "OverlayChrome.h"

#include "Ink.h"
#include "Widgets.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class OverlayChromeTest : public testing::Test {
protected:
    OverlayChromeTest() { resizeCard(420, 280); }

    void resizeCard(int width, int height)
    {
        chrome.resize(QSize(width, height).grownBy(chrome.shadowReach()));
        present(chrome);
        image = picture(chrome);
    }

    /// Of the pixel at a place in the card; negative places lie in the shadow.
    QColor at(int x, int y) const
    {
        const QMargins reach = chrome.shadowReach();
        return image.pixelColor(reach.left() + x, reach.top() + y);
    }

    QWidget* content = new QWidget;
    OverlayChrome chrome{content};
    QImage image;
};

TEST_F(OverlayChromeTest, fill_inside_isBlackAt072)
{
    EXPECT_EQ(at(210, 140), QColor(0, 0, 0, 184));
    EXPECT_EQ(at(3, 100), QColor(0, 0, 0, 184));
    EXPECT_EQ(at(416, 270), QColor(0, 0, 0, 184));
}

TEST_F(OverlayChromeTest, stroke_allEdges_isOnePointOfWhiteAt014InsideTheEdge)
{
    // White at 0.14 over black at 0.72: 0.14 + 0.72 * 0.86 = 0.7592, that is 194 of 255.
    for (const QPoint edge : {QPoint(210, 0), QPoint(210, 279), QPoint(0, 140), QPoint(419, 140)}) {
        EXPECT_NEAR(at(edge.x(), edge.y()).alpha(), 194, 2);
        EXPECT_NEAR(at(edge.x(), edge.y()).red(), 0.14 / 0.7592 * 255, 4);
    }
}

TEST_F(OverlayChromeTest, corner_outsideTheCurve_showsNoCard)
{
    EXPECT_LT(at(0, 0).alpha(), 30);
    EXPECT_LT(at(2, 2).alpha(), 30);
    EXPECT_EQ(at(8, 8), QColor(0, 0, 0, 184));
}

TEST_F(OverlayChromeTest, shadow_aroundTheCard_liesLowerAndFadesOut)
{
    const int above = at(210, -2).alpha();
    const int below = at(210, 281).alpha();
    const int beside = at(-2, 140).alpha();
    // Half of black at 0.45 at the edge of the shadow itself; it lies 12 points lower.
    EXPECT_NEAR(beside, 0.45 * 255 / 2, 10);
    EXPECT_LT(above, beside);
    EXPECT_GT(below, beside);
    EXPECT_GT(above, 5);
    EXPECT_EQ(at(210, 281).red(), 0);
    for (const QPoint end : {QPoint(0, 100), QPoint(image.width() - 1, 100), QPoint(200, 0),
             QPoint(200, image.height() - 1), QPoint(0, 0)})
        EXPECT_LE(image.pixelColor(end).alpha(), 2);
}

TEST_F(OverlayChromeTest, shadow_leftAndRight_areAlike)
{
    for (int y = -20; y < 320; y += 7)
        for (int distance = 1; distance < 38; distance += 3)
            EXPECT_NEAR(at(-distance, y).alpha(), at(419 + distance, y).alpha(), 1);
}

TEST_F(OverlayChromeTest, shadow_atItsEdge_fallsOffAsABellDoes)
{
    // 14 and 28 points from the edge: 0.1587 and 0.0228 of the whole.
    EXPECT_NEAR(at(-14, 140).alpha(), 0.1587 * 0.45 * 255, 3);
    EXPECT_NEAR(at(-28, 140).alpha(), 0.0228 * 0.45 * 255, 3);
    EXPECT_NEAR(at(210, 279 + 12 + 14).alpha(), 0.1587 * 0.45 * 255, 3);
}

TEST_F(OverlayChromeTest, resize_largerCard_keepsTheCornersAndEdges)
{
    const QImage before = image;
    const int right = image.width();
    const int bottom = image.height();
    resizeCard(800, 600);
    EXPECT_EQ(image.copy(0, 0, 90, 90), before.copy(0, 0, 90, 90));
    EXPECT_EQ(image.copy(image.width() - 90, image.height() - 100, 90, 100),
        before.copy(right - 90, bottom - 100, 90, 100));
    EXPECT_EQ(at(400, 300), QColor(0, 0, 0, 184));
    EXPECT_EQ(at(-5, 300), QImage(before).pixelColor(38 - 5, 26 + 140));
}

TEST_F(OverlayChromeTest, resize_cardSmallerThanItsCorners_isStillACard)
{
    resizeCard(100, 50);
    EXPECT_EQ(at(50, 25), QColor(0, 0, 0, 184));
    EXPECT_NEAR(at(50, 0).alpha(), 194, 2);
    EXPECT_LT(at(0, 0).alpha(), 60);
}

TEST_F(OverlayChromeTest, resize_noRoomForACard_drawsNothing)
{
    chrome.resize(60, 60);
    EXPECT_EQ(picture(chrome).pixelColor(30, 30).alpha(), 0);
}

TEST_F(OverlayChromeTest, content_composited_fillsTheCard)
{
    EXPECT_EQ(content->geometry(), QRect(38, 26, 420, 280));
    EXPECT_EQ(chrome.shadowReach(), QMargins(38, 26, 38, 50));
}

TEST_F(OverlayChromeTest, setComposited_false_isAnOpaqueCardWithoutMargins)
{
    chrome.setComposited(false);
    EXPECT_TRUE(chrome.shadowReach().isNull());
    resizeCard(420, 280);
    EXPECT_EQ(content->geometry(), QRect(0, 0, 420, 280));
    EXPECT_EQ(at(210, 140), QColor(0x1c, 0x1c, 0x1e));
    EXPECT_EQ(at(0, 0).alpha(), 255);
    EXPECT_GT(at(210, 0).red(), at(210, 140).red());
    chrome.setComposited(true);
    resizeCard(420, 280);
    EXPECT_EQ(at(210, 140), QColor(0, 0, 0, 184));
}

TEST_F(OverlayChromeTest, shapeIn_widgetInTheCard_isTheCardAsSeenFromThere)
{
    QWidget bar(content);
    bar.setGeometry(0, 5, 420, 44);
    const QPainterPath shape = OverlayChrome::shapeIn(bar);
    EXPECT_EQ(shape.boundingRect(), QRectF(0, -5, 420, 280));
    EXPECT_FALSE(shape.contains(QPointF(0.5, -4.5)));
}

TEST_F(OverlayChromeTest, shapeIn_widgetElsewhere_isEmpty)
{
    const QWidget elsewhere;
    EXPECT_TRUE(OverlayChrome::shapeIn(elsewhere).isEmpty());
}

TEST_F(OverlayChromeTest, surroundings_always_areDark)
{
    EXPECT_EQ(surroundingsOf(*content), Surroundings::dark);
}

} // namespace
} // namespace sablequill
