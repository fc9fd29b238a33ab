// SPDX-License-Identifier: MIT
#include "DevicePixels.h"

#include <QImage>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

QImage device(double ratio)
{
    QImage image(24, 24, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    image.setDevicePixelRatio(ratio);
    return image;
}

/// How many of the device's rows a hairline at that height fills; -1 when one is filled in part.
int rowsOfHairline(double ratio, int y)
{
    QImage image = device(ratio);
    QPainter painter(&image);
    painter.translate(0, y);
    fillHairline(painter, QRectF(0, 0, 8, 1), Qt::black);
    painter.end();
    int rows = 0;
    for (int row = 0; row < image.height(); ++row) {
        const int alpha = image.pixelColor(2, row).alpha();
        if (alpha != 0 && alpha != 255)
            return -1;
        rows += alpha == 255 ? 1 : 0;
    }
    return rows;
}

TEST(DevicePixels, fillHairline_anyHeight_isEquallyThick)
{
    for (int y = 0; y < 8; ++y) {
        EXPECT_EQ(rowsOfHairline(1, y), 1) << y;
        EXPECT_EQ(rowsOfHairline(1.25, y), 1) << y;
        EXPECT_EQ(rowsOfHairline(1.5, y), 1) << y;
        EXPECT_EQ(rowsOfHairline(1.75, y), 1) << y;
        EXPECT_EQ(rowsOfHairline(2, y), 2) << y;
    }
}

TEST(DevicePixels, hairline_belowOnePixelAPoint_isStillOne)
{
    QImage image = device(1);
    QPainter painter(&image);
    painter.scale(0.5, 0.5);
    EXPECT_DOUBLE_EQ(hairline(painter), 2);
}

TEST(DevicePixels, onDevicePixels_betweenTwo_isAtAnEdge)
{
    QImage image = device(1.5);
    QPainter painter(&image);
    painter.translate(1, 1);
    // One point and a half of pixels: 3.75 of them from the corner.
    const QPointF edge = onDevicePixels(painter, QPointF(1.5, 1));
    EXPECT_DOUBLE_EQ((edge.x() + 1) * 1.5, 4);
    EXPECT_DOUBLE_EQ((edge.y() + 1) * 1.5, 3);
}

TEST(DevicePixels, onDevicePixels_rect_hasAllEdgesThere)
{
    QImage image = device(1.5);
    QPainter painter(&image);
    const QRectF rect = onDevicePixels(painter, QRectF(1, 2, 4, 3));
    EXPECT_DOUBLE_EQ(rect.left() * 1.5, 2);
    EXPECT_DOUBLE_EQ(rect.top() * 1.5, 3);
    EXPECT_DOUBLE_EQ(rect.right() * 1.5, 8);
    EXPECT_DOUBLE_EQ(rect.bottom() * 1.5, 8);
}

} // namespace
} // namespace sablequill
