// SPDX-License-Identifier: MIT
#include "ShownText.h"

#include "Widgets.h"

#include <gtest/gtest.h>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

const QString block = QString(QChar::ParagraphSeparator);
const QString line = QString(QChar::LineSeparator);

QString shownOf(const QString& text)
{
    return ShownText(ShownText::hasManyLines(text)).append(text);
}

struct ShownRow {
    QString text;
    QString shown;
};

TEST(ShownText, append_shortText_isShownAsADocumentTakesIt)
{
    const QString sign = QString(QChar::ReplacementCharacter);
    for (const ShownRow& row : std::initializer_list<ShownRow>{
             {QString(), QString()},
             {u"plain"_s, u"plain"_s},
             {u"a\nb"_s, u"a"_s + block + u"b"_s},
             {u"a\r\nb"_s, u"a"_s + block + u"b"_s},
             {u"a\rb"_s, u"a"_s + block + u"b"_s},
             {u"a\n\rb"_s, u"a"_s + block + block + u"b"_s},
             {u"a\u2029b"_s, u"a"_s + block + u"b"_s},
             {u"a\uFDD0b\uFDD1"_s, u"a"_s + block + u"b"_s + block},
             {u"a\u2028b"_s, u"a\u2028b"_s},
             {u"a\u00A0b\tc"_s, u"a\u00A0b\tc"_s},
             {u"a\uFFFCb"_s, u"a"_s + sign + u"b"_s},
             {QString(QChar()), sign},
         })
        EXPECT_EQ(shownOf(row.text), row.shown);
}

TEST(ShownText, append_parts_areShownLikeTheWhole)
{
    const QString text = u"a\r\nb\rc\r\n"_s;
    for (qsizetype cut = 0; cut <= text.size(); ++cut) {
        ShownText parts;
        QString shown = parts.append(text.left(cut));
        shown += parts.append(text.mid(cut));
        EXPECT_EQ(shown, shownOf(text)) << cut;
        EXPECT_EQ(parts.text(), text);
        EXPECT_EQ(parts.shownLength(), shown.size());
    }
}

TEST(ShownText, append_longParagraph_isCutBetweenWords)
{
    const QString text = u"seven77 "_s.repeated(2000);
    const QString shown = shownOf(text);
    QString joined;
    for (const QString& part : shown.split(QChar::ParagraphSeparator)) {
        EXPECT_LE(part.size(), ShownText::longestBlock);
        EXPECT_TRUE(part.isEmpty() || part.startsWith(u"seven"_s));
        joined += part;
    }
    EXPECT_EQ(joined, text);
    EXPECT_GT(shown.count(QChar::ParagraphSeparator), 2);
}

TEST(ShownText, append_longWord_isCutAtTheLimitButNotInACharacter)
{
    const QString faces = QString::fromUcs4(U"\U0001F600").repeated(5000);
    const QString accents = u"e\u0301"_s.repeated(5000);
    for (const QString& text : {faces, accents})
        for (const QString& part : shownOf(text).split(QChar::ParagraphSeparator)) {
            EXPECT_LE(part.size(), ShownText::longestBlock + 1);
            EXPECT_FALSE(part.front().isLowSurrogate() || part.front().isMark());
        }
}

TEST(ShownText, append_endlessMarks_areCutAllTheSame)
{
    for (const QString& part :
        shownOf(QString(20'000, QChar(0x301))).split(QChar::ParagraphSeparator))
        EXPECT_LE(part.size(), ShownText::longestBlock + 64);
}

TEST(ShownText, append_veryManyLines_shareBlocks)
{
    const QString shown = shownOf(QString(200'000, u'\n'));
    EXPECT_EQ(shown.size(), 200'000);
    EXPECT_LT(shown.count(QChar::ParagraphSeparator), 60);
    for (const QString& part : shown.split(QChar::ParagraphSeparator))
        EXPECT_LE(part.size(), ShownText::longestBlock);
}

struct PlaceRow {
    qsizetype shown;
    qsizetype text;
};

TEST(ShownText, place_lineBreaksOfTwoCharacters_countAsOne)
{
    ShownText text;
    text.append(u"a\r\nbc\r\n\nd"_s);
    for (const PlaceRow& row : std::initializer_list<PlaceRow>{
             {0, 0}, {1, 1}, {2, 3}, {3, 4}, {4, 5}, {5, 7}, {6, 8}, {7, 9}, {99, 9}}) {
        EXPECT_EQ(text.place(row.shown).text, row.text) << row.shown;
        if (row.shown < 99) {
            EXPECT_EQ(text.shownPosition(row.text), row.shown);
        }
    }
    EXPECT_EQ(text.shownLength(), 7);
}

TEST(ShownText, place_softBreaks_areNothingInTheText)
{
    ShownText text;
    const QString shown = text.append(QString(9000, u'x'));
    ASSERT_EQ(shown.size(), 9002);
    EXPECT_EQ(text.place(4000).text, 4000);
    EXPECT_EQ(text.place(4001).text, 4000);
    EXPECT_EQ(text.place(4002).text, 4001);
    EXPECT_EQ(text.place(9002).text, 9000);
    EXPECT_EQ(text.shownPosition(4000), 4000);
    EXPECT_EQ(text.shownPosition(4001), 4002);
    for (const qsizetype at : {qsizetype{-1}, qsizetype{0}, qsizetype{3999}, qsizetype{4001},
             qsizetype{8002}, qsizetype{9002}})
        EXPECT_FALSE(text.isSoftBreak(at)) << at;
    EXPECT_TRUE(text.isSoftBreak(4000));
    EXPECT_TRUE(text.isSoftBreak(8001));
}

TEST(ShownText, textBetween_anyPlaces_isTheTextAsItCame)
{
    ShownText text;
    const QString content = u"a\u00A0b\r\nc\u2029d"_s + QString(5000, u'x') + u"\uFFFC"_s;
    const QString shown = text.append(content);
    EXPECT_EQ(text.textBetween(0, shown.size()), content);
    EXPECT_EQ(text.textBetween(2, 5), u"b\r\nc"_s);
    EXPECT_EQ(text.textBetween(shown.size() - 2, shown.size()), u"x\uFFFC"_s);
    EXPECT_EQ(text.textBetween(3, 3), QString());
    for (qsizetype start = 0; start < shown.size(); start += 613)
        for (qsizetype end = start; end <= shown.size(); end += 613)
            EXPECT_EQ(text.shownBetween(start, end), shown.mid(start, end - start));
}

} // namespace
} // namespace sablequill
