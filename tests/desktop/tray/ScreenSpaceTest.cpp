// SPDX-License-Identifier: MIT
#include "ScreenSpace.h"
#include "Printing.h"

#include <QGuiApplication>
#include <QScreen>

#include <gtest/gtest.h>

#include <limits>

namespace sablequill {
namespace {

QRect geometryOf(const QString& name)
{
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (screen->name() == name)
            return screen->geometry();
    }
    return {};
}

TEST(ScreenSpaceTest, screens_ofTheConfiguration_areScaled)
{
    EXPECT_EQ(geometryOf(QStringLiteral("plain")), QRect(0, 0, 1920, 1080));
    EXPECT_EQ(geometryOf(QStringLiteral("double")), QRect(1920, 0, 1920, 1080));
    EXPECT_EQ(geometryOf(QStringLiteral("fractional")), QRect(5760, 200, 400, 320));
}

TEST(ScreenSpaceTest, toToolkit_beyondReason_isWhatAServerCanShow)
{
    constexpr double most = std::numeric_limits<double>::max();
    const QPoint zero = ScreenSpace::toToolkit({0, 0, 0, 0}).topLeft();
    EXPECT_EQ(ScreenSpace::toToolkit({most, most, most, most}),
        QRect(zero + QPoint(16'000, -26'000), QSize(10'000, 10'000)));
    EXPECT_EQ(ScreenSpace::toToolkit({-most, -most, -most, -5}),
        QRect(zero + QPoint(-16'000, 16'000), QSize(0, 0)));
    EXPECT_EQ(ScreenSpace::toToolkit({-5000, -5000, 100, 50}),
        QRect(zero + QPoint(-5000, 4950), QSize(100, 50)));
}

struct PixelRow {
    const char* name;
    QPoint pixel;
    /// In the toolkit's coordinates; nothing when it is on no screen.
    std::optional<QPoint> expected;
};

class FromNative : public testing::TestWithParam<PixelRow> { };

TEST_P(FromNative, fromNative_pixel_isThePointThatShowsIt)
{
    const auto point = ScreenSpace::fromNative(GetParam().pixel);
    std::optional<Rect> expected;
    if (const auto place = GetParam().expected)
        expected = ScreenSpace::fromToolkit(QRect(*place, QSize(0, 0)));
    EXPECT_EQ(point, expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, FromNative,
    testing::Values( //
        PixelRow{"first", {0, 0}, QPoint(0, 0)},
        PixelRow{"plainScreen", {700, 10}, QPoint(700, 10)},
        PixelRow{"lastOfPlainScreen", {1919, 1079}, QPoint(1919, 1079)},
        PixelRow{"belowPlainScreen", {700, 1085}, {}},
        PixelRow{"firstOfDoubleScreen", {1920, 0}, QPoint(1920, 0)},
        PixelRow{"doubleScreen", {3920, 100}, QPoint(2920, 50)},
        PixelRow{"oddPixelOfDoubleScreen", {3921, 101}, QPoint(2920, 50)},
        PixelRow{"lastOfDoubleScreen", {5759, 2159}, QPoint(3839, 1079)},
        PixelRow{"fractionalScreen", {5760 + 250, 200 + 25}, QPoint(5760 + 100, 210)},
        PixelRow{"lastOfFractionalScreen", {5760 + 1000, 200 + 800}, QPoint(6159, 519)},
        PixelRow{"leftOfAll", {-1, 10}, {}}, PixelRow{"aboveAll", {10, -1}, {}},
        PixelRow{"rightOfAll", {9000, 300}, {}}),
    [](const auto& info) { return info.param.name; });

} // namespace
} // namespace sablequill
