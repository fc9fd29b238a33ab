// SPDX-License-Identifier: MIT
#include "Symbol.h"

#include "SymbolView.h"
#include "Widgets.h"

#include <QPainter>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

const char* const names[] = {"checkmark", "checkmark.circle.fill", "chevron.left", "chevron.right",
    "command", "eye", "eye.slash.fill", "gearshape", "info.circle", "minus", "note.text", "pencil",
    "plus", "rectangle.on.rectangle", "slider.horizontal.3"};

/// The sum of the alpha of all pixels, each 1 when opaque.
double inkOf(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage();
    double sum = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    return sum;
}

Symbol symbol(const char* name, double size, QFont::Weight weight = QFont::Normal)
{
    return {QString::fromLatin1(name), size, weight};
}

TEST(Symbol, symbolPixmap_everyName_isDrawn)
{
    for (const char* name : names)
        for (const double size : {10.0, 11.0, 13.0, 56.0}) {
            const QPixmap drawn = symbolPixmap(symbol(name, size), Qt::white, 1);
            EXPECT_GT(inkOf(drawn), drawn.width() * 0.5) << name << ' ' << size;
        }
}

TEST(Symbol, symbolPixmap_unknownName_isNull)
{
    EXPECT_TRUE(symbolPixmap(symbol("no.such.symbol", 11), Qt::white, 1).isNull());
}

TEST(Symbol, symbolPixmap_strokedName_getsThickerWithTheWeight)
{
    for (const char* name : {"plus", "minus", "chevron.left", "eye", "command", "note.text"}) {
        double previous = 0;
        for (const QFont::Weight weight :
            {QFont::Light, QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
            const double now = inkOf(symbolPixmap(symbol(name, 56, weight), Qt::white, 1));
            EXPECT_GT(now, previous) << name << ' ' << weight;
            previous = now;
        }
    }
}

TEST(Symbol, symbolPixmap_color_isTheOnlyOneInIt)
{
    const QColor green(0x32, 0xd7, 0x4b);
    const QImage image = symbolPixmap(symbol("eye.slash.fill", 56), green, 1).toImage();
    const QRgb inEye = image.pixel(image.width() / 4, image.height() / 2);
    EXPECT_EQ(QColor::fromRgba(inEye), green);
}

TEST(Symbol, symbolPixmap_ratio_givesMorePixelsForTheSamePoints)
{
    for (const double ratio : {1.0, 1.5, 2.0}) {
        const QPixmap drawn = symbolPixmap(symbol("eye", 11), Qt::white, ratio);
        EXPECT_EQ(drawn.width(), static_cast<int>(14 * ratio));
        EXPECT_EQ(drawn.deviceIndependentSize().toSize(), QSize(14, 14));
    }
}

TEST(Symbol, drawSymbol_betweenTheDevicesPixels_isAsSharpAsElsewhere)
{
    const auto drawnAt = [](double corner) {
        QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        image.setDevicePixelRatio(1.5);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        drawSymbol(painter, {corner, corner}, symbol("eye", 11), Qt::black);
        return image;
    };
    // Eight points are twelve pixels, nine are thirteen and a half: drawn from the fourteenth on.
    EXPECT_EQ(drawnAt(8).copy(12, 12, 21, 21), drawnAt(9).copy(14, 14, 21, 21));
}

TEST(Symbol, symbolPixmap_askedAgain_isTheOneDrawnBefore)
{
    const auto ask = [] { return symbolPixmap(symbol("gearshape", 13), Qt::red, 1).cacheKey(); };
    EXPECT_EQ(ask(), ask());
}

TEST(Symbol, symbolExtent_sizesInUse_areEven)
{
    for (const double size : {10.0, 11.0, 13.0, 48.0, 56.0})
        EXPECT_EQ(symbolExtent(size) % 2, 0) << size;
    EXPECT_EQ(symbolExtent(11), 14);
    EXPECT_EQ(symbolExtent(10), 12);
}

TEST(SymbolView, paint_inAFrame_standsInItsMiddle)
{
    SymbolView view(symbol("minus", 11), {InkRole::white});
    EXPECT_EQ(view.sizeHint(), QSize(14, 14));
    view.resize(24, 24);
    const QImage image = picture(view);
    EXPECT_GT(image.pixelColor(12, 11).alpha(), 100);
    EXPECT_EQ(image.pixelColor(12, 4).alpha(), 0);
    EXPECT_EQ(image.pixelColor(6, 12), image.pixelColor(17, 12));
}

TEST(SymbolView, setters_newValue_isShown)
{
    SymbolView view(symbol("minus", 11), {InkRole::white});
    view.resize(14, 14);
    const QImage before = picture(view);
    view.setSymbolName(QStringLiteral("plus"));
    const QImage plus = picture(view);
    EXPECT_NE(before, plus);
    view.setInk({InkRole::green});
    EXPECT_NE(plus, picture(view));
}

} // namespace
} // namespace sablequill
