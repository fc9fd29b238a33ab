// SPDX-License-Identifier: MIT
#include "Bands.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPaintEvent>
#include <QPainter>

#include <filesystem>
#include <iterator>

namespace sablequill {
namespace {

const QRectF card(10, 20, 420, 280);

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
    painter.setPen(QPen(QColor(200, 0, 0, 90), 3));
    painter.setBrush(QColor(0, 0, 0, 180));
    painter.drawRoundedRect(card, 14, 14);
}

std::ptrdiff_t threads()
{
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
}

// The first of the tests that draw: the toolkit keeps its threads for a while.
TEST(Bands, drawInBands_largeArea_startsNoThread)
{
    const auto before = threads();
    drawn([](QPainter& painter) {
        drawInBands(painter, card.adjusted(-2, -2, 2, 2), [&] { fillShape(painter); });
    });
    EXPECT_EQ(threads(), before);
}

TEST(Bands, drawInBands_translucentShape_looksAsDrawnAtOnce)
{
    const QImage banded = drawn([](QPainter& painter) {
        drawInBands(painter, card.adjusted(-2, -2, 2, 2), [&] { fillShape(painter); });
    });
    EXPECT_EQ(banded, drawn(fillShape));
}

TEST(Bands, drawInBands_clippedPainter_staysInTheClip)
{
    const QRect clip(30, 40, 50, 60);
    int bands = 0;
    const QImage banded = drawn([&](QPainter& painter) {
        painter.setClipRect(clip);
        drawInBands(painter, card.adjusted(-2, -2, 2, 2), [&] {
            fillShape(painter);
            ++bands;
        });
    });
    const QImage whole = drawn([&](QPainter& painter) {
        painter.setClipRect(clip);
        fillShape(painter);
    });
    EXPECT_EQ(banded, whole);
    EXPECT_LE(bands, 60 / 8 + 1);
}

TEST(Bands, clipToUpdate_edgesBetweenPixels_everyPixelOfTheRectIsPaintedAndFewAround)
{
    constexpr double scale = 1.5;
    const QRect updated(21, 33, 40, 30);
    QImage image(440, 320, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    QPainter painter(&image);
    clipToUpdate(painter, QPaintEvent(updated));
    painter.fillRect(0, 0, 440, 320, Qt::black);
    painter.end();
    const QRect touched = QRectF(21 * scale, 33 * scale, 40 * scale, 30 * scale).toAlignedRect();
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const bool isPainted = image.pixel(x, y) == qRgb(0, 0, 0);
            ASSERT_TRUE(isPainted || !touched.contains(x, y)) << x << ' ' << y;
            ASSERT_TRUE(!isPainted || touched.adjusted(-2, -2, 2, 2).contains(x, y))
                << x << ' ' << y;
        }
}

TEST(Bands, drawRoundedRect_penAndBrush_looksAsDrawnAtOnce)
{
    const QImage banded = drawn([](QPainter& painter) {
        painter.setPen(QPen(QColor(200, 0, 0, 90), 3));
        painter.setBrush(QColor(0, 0, 0, 180));
        drawRoundedRect(painter, card, 14);
    });
    EXPECT_EQ(banded, drawn(fillShape));
}

TEST(Bands, drawRoundedRect_thumbOfAScrollBar_startsNoThread)
{
    const auto before = threads();
    drawn([](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 180));
        drawRoundedRect(painter, QRectF(10, 10, 5, 300), 2.5);
    });
    EXPECT_EQ(threads(), before);
}

TEST(Bands, drawRoundedRect_circleOfAButton_startsNoThread)
{
    const auto before = threads();
    drawn([](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 180));
        drawRoundedRect(painter, QRectF(10, 10, 26, 26), 13);
    });
    EXPECT_EQ(threads(), before);
}

} // namespace
} // namespace sablequill
