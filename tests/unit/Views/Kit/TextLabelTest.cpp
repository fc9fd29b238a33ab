// SPDX-License-Identifier: MIT
#include "TextLabel.h"

#include "Widgets.h"

#include <QAccessible>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

const TextStyle headerStyle{12, QFont::DemiBold};

TEST(TextLabel, shownLine_enoughRoom_isTheWholeText)
{
    const TextLabel label(QStringLiteral("Shopping"), headerStyle);
    EXPECT_EQ(label.shownLine(label.sizeHint().width()), QStringLiteral("Shopping"));
}

TEST(TextLabel, shownLine_littleRoom_endsInAnEllipsis)
{
    const TextLabel label(QStringLiteral("A title that does not fit"), headerStyle);
    const QString shown = label.shownLine(90);
    EXPECT_TRUE(shown.startsWith(QStringLiteral("A tit")));
    EXPECT_TRUE(shown.endsWith(QChar(0x2026)));
    EXPECT_LE(label.fontMetrics().horizontalAdvance(shown), 90);
}

struct BreakRow {
    const char16_t* text;
    const char16_t* shown;
};

TEST(TextLabel, shownLine_textOfMoreLines_isTheFirst)
{
    for (const BreakRow& row : std::initializer_list<BreakRow>{
             {u"one\ntwo", u"one\u2026"},
             {u"one\r\ntwo", u"one\u2026"},
             {u"one\u2029two", u"one\u2026"},
             {u"one\u0085", u"one\u2026"},
             {u"a\tb", u"a b"},
             {u"", u""},
         })
        EXPECT_EQ(TextLabel(QString::fromUtf16(row.text), headerStyle).shownLine(1000),
            QString::fromUtf16(row.shown));
}

/// So that a line of any length takes no longer.
TEST(TextLabel, sizeHint_lineBeyondAnyScreen_onlyItsStartIsMeasured)
{
    const TextLabel label(QString(1'000'000, u'w'), headerStyle);
    EXPECT_EQ(label.sizeHint(), TextLabel(QString(2000, u'w'), headerStyle).sizeHint());
    EXPECT_LT(label.shownLine(1'000'000).size(), 2000);
}

TEST(TextLabel, minimumSizeHint_longLine_leavesRoomForOthers)
{
    const TextLabel label(QString(200, u'w'), headerStyle);
    EXPECT_LT(label.minimumSizeHint().width(), 20);
}

TEST(TextLabel, monospacedDigits_anyDigits_takeTheSameWidth)
{
    TextLabel narrow(QStringLiteral("111"));
    TextLabel wide(QStringLiteral("888"));
    narrow.setMonospacedDigits();
    wide.setMonospacedDigits();
    EXPECT_EQ(narrow.sizeHint(), wide.sizeHint());
}

TEST(TextLabel, reserve_widerText_setsTheWidth)
{
    TextLabel label(QStringLiteral("1 / 12"));
    const int before = label.sizeHint().width();
    label.reserve(QStringLiteral("12 / 12"));
    const int reserved = label.sizeHint().width();
    EXPECT_GT(reserved, before);
    label.setText(QStringLiteral("12 / 12"));
    EXPECT_EQ(label.sizeHint().width(), reserved);
    EXPECT_EQ(label.minimumSizeHint().width(), reserved);
}

TEST(TextLabel, heightForWidth_manyLines_growsAsTheWidthShrinks)
{
    const TextLabel label(QStringLiteral("some words that wrap at the end of each line"),
        TextStyles::body, {}, TextLabel::Lines::many);
    EXPECT_GT(label.heightForWidth(80), 2 * label.heightForWidth(1000));
}

TEST(TextLabel, wrapAt_centeredText_hasLinesOfAboutTheSameLength)
{
    TextLabel label(QStringLiteral("several words that take one line and more"), TextStyles::body,
        {InkRole::white}, TextLabel::Lines::many);
    const QFontMetrics metrics(label.font());
    const int width = metrics.horizontalAdvance(label.text()) - 4;
    label.setAlignment(Qt::AlignHCenter);
    label.wrapAt(width);
    EXPECT_EQ(label.size(), QSize(width, label.heightForWidth(width)));
    const QImage drawn = picture(label);
    const auto inkedColumns = [&](int top, int bottom) {
        int count = 0;
        for (int x = 0; x < width; ++x) {
            bool isInked = false;
            for (int y = top; y < bottom; ++y)
                isInked = isInked || drawn.pixelColor(x, y).alpha() > 0;
            count += isInked ? 1 : 0;
        }
        return count;
    };
    const int middle = label.height() / 2;
    EXPECT_LT(inkedColumns(0, middle), width * 2 / 3);
    EXPECT_GT(inkedColumns(middle, label.height()), width / 4);
}

TEST(TextLabel, monospacedDesign_letters_areOfOneWidthAndSignsTheSystems)
{
    const auto widthOf = [](const QString& text, bool isMonospaced) {
        TextLabel label(text);
        if (isMonospaced)
            label.setMonospacedDesign();
        return label.sizeHint().width();
    };
    EXPECT_EQ(widthOf(QStringLiteral("ill"), true), widthOf(QStringLiteral("WWW"), true));
    EXPECT_EQ(widthOf(QStringLiteral("⌘"), true), widthOf(QStringLiteral("⌘"), false));
}

TEST(TextLabel, paint_ink_isTheTextsColor)
{
    TextLabel label(QStringLiteral("\u2588\u2588\u2588"), TextStyles::title, {InkRole::green});
    label.setPalette(paletteFor(Surroundings::dark));
    label.resize(label.sizeHint());
    const QPoint middle = label.rect().center();
    EXPECT_EQ(picture(label).pixelColor(middle), QColor(0x32, 0xd7, 0x4b));
    label.setInk({InkRole::accent});
    EXPECT_EQ(picture(label).pixelColor(middle), QColor(0x0a, 0x84, 0xff));
}

TEST(TextLabel, paint_monospacedDigits_drawsTheText)
{
    TextLabel label(QStringLiteral("2 / 5"), TextStyles::subheadline, {InkRole::white});
    label.setMonospacedDigits();
    label.resize(label.sizeHint());
    const QImage drawn = picture(label);
    QImage blank = drawn;
    blank.fill(Qt::transparent);
    EXPECT_NE(drawn, blank);
}

TEST(TextLabel, accessibility_label_saysItsText)
{
    TextLabel label(QStringLiteral("Shopping"));
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&label);
    ASSERT_TRUE(spoken);
    EXPECT_EQ(spoken->role(), QAccessible::StaticText);
    EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Shopping"));
}

} // namespace
} // namespace sablequill
