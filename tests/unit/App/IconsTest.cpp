// SPDX-License-Identifier: MIT
#include "Icons.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace sablequill {
namespace {

/// The smallest rectangle around the pixels of which more than a trace is seen.
QRect drawn(const QImage& image)
{
    QRect result;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y).alpha() > 8)
                result |= QRect(x, y, 1, 1);
    return result;
}

class StatusIconTest : public testing::TestWithParam<int> { };

TEST_P(StatusIconTest, pixmap_anySize_isDrawnInThatSize)
{
    const int side = GetParam();
    const QImage image = statusIcon().pixmap(QSize(side, side), 1.0).toImage();
    ASSERT_EQ(image.size(), QSize(side, side));
    EXPECT_GT(drawn(image).width(), side / 2);
    EXPECT_GT(drawn(image).height(), side / 2);
}

TEST_P(StatusIconTest, paint_wideRoom_isASquareInItsMiddle)
{
    const int side = GetParam();
    QImage room(3 * side, side, QImage::Format_ARGB32_Premultiplied);
    room.fill(Qt::transparent);
    QPainter painter(&room);
    statusIcon().paint(&painter, room.rect());
    painter.end();
    EXPECT_TRUE(QRect(side, 0, side, side).contains(drawn(room)));
    EXPECT_GT(drawn(room).width(), side / 2);
}

INSTANTIATE_TEST_SUITE_P(Sides, StatusIconTest, testing::Values(16, 22, 37, 48, 128));

} // namespace
} // namespace sablequill
