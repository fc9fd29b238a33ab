// SPDX-License-Identifier: MIT
#include "TextStyle.h"

#include "Widgets.h"

#include <QFontInfo>
#include <QGlyphRun>
#include <QGuiApplication>
#include <QTextLayout>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

struct StyleRow {
    TextStyle style;
    int pixelSize;
    int weight;
};

TEST(TextStyle, pixelSize_sizesBeyondReason_areThoseOfALetter)
{
    for (const auto& [points, pixels] : std::initializer_list<std::pair<double, int>>{
             {16, 16}, {16.5, 17}, {0, 1}, {-20, 1}, {1e308, 2000}, {-1e308, 1}})
        EXPECT_EQ(pixelSize(points), pixels) << points;
}

TEST(TextStyle, font_everyStyle_hasItsSizeAndWeight)
{
    for (const StyleRow& row : std::initializer_list<StyleRow>{
             {TextStyles::largeTitle, 26, 400},
             {TextStyles::title, 22, 400},
             {TextStyles::title2, 17, 400},
             {TextStyles::title3, 15, 400},
             {TextStyles::headline, 13, 700},
             {TextStyles::body, 13, 400},
             {TextStyles::callout, 12, 400},
             {TextStyles::subheadline, 11, 400},
             {TextStyles::footnote, 10, 400},
             {TextStyles::caption, 10, 400},
             {TextStyles::caption2, 10, 500},
             {TextStyles::title.weighted(QFont::DemiBold), 22, 600},
         }) {
        const QFont shown = font(row.style);
        EXPECT_EQ(shown.pixelSize(), row.pixelSize);
        EXPECT_EQ(shown.weight(), row.weight);
        EXPECT_EQ(shown.families(), QGuiApplication::font().families());
    }
}

TEST(TextStyle, font_fractionalSize_isRounded)
{
    EXPECT_EQ(font({16.5}).pixelSize(), 17);
    EXPECT_EQ(font({0}).pixelSize(), 1);
}

TEST(TextStyle, monospacedFont_anyStyle_isOfFixedPitch)
{
    EXPECT_TRUE(QFontInfo(monospacedFont(TextStyles::body)).fixedPitch());
}

/// Glyph 0 of a font is the box that stands for a missing one.
bool hasEveryGlyph(const QString& text, const QFont& font)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    return !runs.isEmpty() && std::none_of(runs.begin(), runs.end(), [](const QGlyphRun& run) {
        return run.glyphIndexes().contains(0);
    });
}

TEST(TextStyle, font_signsOfTheInterface_areNoMissingGlyphs)
{
    const std::u16string signs =
        u"\u2318\u21E7\u2325\u2303\u2190\u2191\u2192\u2193\u2022\u2014\u2026\u00B7";
    for (const char16_t sign : signs)
        for (const QFont& shown : {font(TextStyles::body), monospacedFont(TextStyles::body)})
            EXPECT_TRUE(hasEveryGlyph(QChar(sign), shown)) << "U+" << std::hex << int{sign};
}

TEST(TextStyle, font_signThatNoFontHas_isAMissingGlyph)
{
    EXPECT_FALSE(hasEveryGlyph(QChar(0xE0F7), font(TextStyles::body)));
}

} // namespace
} // namespace sablequill
