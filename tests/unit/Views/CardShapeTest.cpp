// SPDX-License-Identifier: MIT
#include "CardShape.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <cmath>
#include <filesystem>
#include <iterator>

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

QImage drawn(const std::function<void(QPainter&)>& draw)
{
    QImage image(440, 320, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter);
    return image;
}

void fillShape(QPainter& painter)
{
    painter.fillPath(cardShape(card, 14), QColor(0, 0, 0, 180));
}

std::ptrdiff_t threads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

// The first of the tests that draw: the toolkit keeps its threads for a while.
TEST(CardShape, drawInBands_largeArea_startsNoThread)
{
    const auto before = threads();
    drawn([](QPainter& painter) { drawInBands(painter, card, [&] { fillShape(painter); }); });
    EXPECT_EQ(threads(), before);
}

TEST(CardShape, drawInBands_translucentShape_looksAsDrawnAtOnce)
{
    const QImage banded =
        drawn([](QPainter& painter) { drawInBands(painter, card, [&] { fillShape(painter); }); });
    EXPECT_EQ(banded, drawn(fillShape));
}

TEST(CardShape, drawInBands_clippedPainter_staysInTheClip)
{
    const QRect clip(30, 40, 50, 60);
    const QImage banded = drawn([&](QPainter& painter) {
        painter.setClipRect(clip);
        drawInBands(painter, card, [&] { fillShape(painter); });
    });
    const QImage whole = drawn([&](QPainter& painter) {
        painter.setClipRect(clip);
        fillShape(painter);
    });
    EXPECT_EQ(banded, whole);
}

} // namespace
} // namespace sablequill
