// SPDX-License-Identifier: MIT
#include "CardShape.h"

#include <gtest/gtest.h>

#include <cmath>

namespace sablequill {
namespace {

const QRectF card(10, 20, 420, 280);

TEST(CardShape, bounds_anyCard_areTheRectangle)
{
    EXPECT_EQ(cardShape(card, 14).boundingRect(), card);
}

TEST(CardShape, corner_onTheDiagonal_isCutOffAsFarAsAnArcDoes)
{
    const QPainterPath shape = cardShape(card, 14);
    const double depth = 14 * (1 - std::sqrt(0.5));
    const QPointF corner = card.topLeft();
    EXPECT_TRUE(shape.contains(corner + QPointF(depth + 0.1, depth + 0.1)));
    EXPECT_FALSE(shape.contains(corner + QPointF(depth - 0.1, depth - 0.1)));
}

TEST(CardShape, corner_besideTheArc_bendsEarlier)
{
    // An arc of 14 points would still touch the edge 14.5 points from the corner.
    const QPainterPath shape = cardShape(card, 14);
    EXPECT_FALSE(shape.contains(card.topLeft() + QPointF(14.5, 0.02)));
    EXPECT_TRUE(shape.contains(card.topLeft() + QPointF(22, 0.02)));
}

TEST(CardShape, corners_allFour_areAlike)
{
    const QPainterPath shape = cardShape(card, 14);
    for (double along = 0.5; along < 25; along += 1.5)
        for (double across = 0.5; across < 25; across += 1.5) {
            const bool isInside = shape.contains(card.topLeft() + QPointF(along, across));
            EXPECT_EQ(shape.contains(card.topRight() + QPointF(-along, across)), isInside);
            EXPECT_EQ(shape.contains(card.bottomLeft() + QPointF(along, -across)), isInside);
            EXPECT_EQ(shape.contains(card.bottomRight() + QPointF(-along, -across)), isInside);
        }
}

TEST(CardShape, corners_tinyCard_shrink)
{
    const QRectF tiny(0, 0, 20, 12);
    const QPainterPath shape = cardShape(tiny, 14);
    EXPECT_EQ(shape.boundingRect(), tiny);
    EXPECT_TRUE(shape.contains(tiny.center()));
    EXPECT_FALSE(shape.contains(QPointF(0.3, 0.3)));
}

} // namespace
} // namespace sablequill
