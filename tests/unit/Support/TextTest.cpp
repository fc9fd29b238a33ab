// SPDX-License-Identifier: MIT
#include "Text.h"

#include <gtest/gtest.h>

#include <ostream>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

struct PrefixCase {
    const char* name;
    QString text;
    int count;
    QString prefix;
};

std::ostream& operator<<(std::ostream& out, const PrefixCase& row)
{
    return out << row.name;
}

class GraphemePrefix : public testing::TestWithParam<PrefixCase> { };

TEST_P(GraphemePrefix, text_cutAtClusterBoundary)
{
    const auto& [name, text, count, prefix] = GetParam();
    EXPECT_EQ(Text::graphemePrefix(text, count).toString().toStdString(), prefix.toStdString());
}

INSTANTIATE_TEST_SUITE_P(Rows, GraphemePrefix,
    testing::Values(PrefixCase{"shorter", u"abc"_s, 5, u"abc"_s},
        PrefixCase{"exact", u"abc"_s, 3, u"abc"_s}, PrefixCase{"cut", u"abcd"_s, 2, u"ab"_s},
        PrefixCase{"empty", u""_s, 2, u""_s}, PrefixCase{"none", u"abc"_s, 0, u""_s},
        PrefixCase{"negative", u"abc"_s, -1, u""_s},
        PrefixCase{"combiningMark", u"e\u0301x"_s, 1, u"e\u0301"_s},
        PrefixCase{"carriageReturnLineFeed", u"\r\nx"_s, 1, u"\r\n"_s},
        PrefixCase{"surrogatePair", u"😀😀"_s, 1, u"😀"_s},
        PrefixCase{"family", u"👩‍👩‍👧x"_s, 1, u"👩‍👩‍👧"_s},
        PrefixCase{"skinTone", u"👍🏽x"_s, 1, u"👍🏽"_s},
        PrefixCase{"flags", u"🇩🇪🇫🇷"_s, 1, u"🇩🇪"_s},
        PrefixCase{"hangulJamo", u"\u1112\u1161\u11ab\u1100"_s, 1, u"\u1112\u1161\u11ab"_s},
        PrefixCase{"tamil", u"தமிழ்"_s, 2, u"தமி"_s},
        PrefixCase{"zeroIsACharacter", QString(u"a\0b"_s), 2, QString(u"a\0"_s)}));

TEST(GraphemePrefix, unpairedSurrogate_countsAsOne)
{
    const QString text = QString(QChar(0xd800)) + u"ab"_s;
    EXPECT_EQ(Text::graphemePrefix(text, 2).size(), 2);
}

TEST(GraphemePrefix, secondText_isNotMixedUpWithTheFirst)
{
    EXPECT_EQ(Text::graphemePrefix(u"longer text", 6).size(), 6);
    EXPECT_EQ(Text::graphemePrefix(u"ab", 6).size(), 2);
}

TEST(CharacterSets, everyUnit_isInTheSetsOfItsCategory)
{
    const QString newlines = u"\u000A\u000B\u000C\u000D\u0085\u2028\u2029"_s;
    const QString whitespace = u"\u0009\u0020\u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006"
                               u"\u2007\u2008\u2009\u200A"
                               u"\u202F\u205F\u3000"_s;
    for (unsigned code = 0; code <= 0xFFFF; ++code) {
        const QChar unit(static_cast<char16_t>(code));
        EXPECT_EQ(Text::isNewline(unit), newlines.contains(unit)) << code;
        EXPECT_EQ(Text::isWhitespace(unit), whitespace.contains(unit)) << code;
    }
}

TEST(Trimming, bothSets_leaveWhatIsInside)
{
    const QString text = u"\u2028\t \u00A0a \n b\u3000\r\n\u0085"_s;
    EXPECT_EQ(Text::trimmedWhitespaceAndNewlines(text).toString(), u"a \n b"_s);
}

TEST(Trimming, whitespaceOnly_newlinesStay)
{
    EXPECT_EQ(Text::trimmedWhitespace(u" \t\n a \u3000").toString(), u"\n a"_s);
    EXPECT_EQ(Text::trimmedWhitespace(u"a\u2029").toString(), u"a\u2029"_s);
}

TEST(Trimming, nothingElseLeft_isEmpty)
{
    EXPECT_TRUE(Text::trimmedWhitespaceAndNewlines(u" \n\t\r ").isEmpty());
    EXPECT_TRUE(Text::trimmedWhitespace(u" \t ").isEmpty());
    EXPECT_TRUE(Text::trimmedWhitespace(u"").isEmpty());
    EXPECT_TRUE(Text::trimmedWhitespace(QStringView()).isEmpty());
}

TEST(Trimming, zeroWidthSpace_stays)
{
    EXPECT_EQ(Text::trimmedWhitespaceAndNewlines(u"\u200Ba\u200B").size(), 3);
}

std::vector<QString> lines(const QString& text)
{
    std::vector<QString> copies;
    for (const auto line : Text::splitAtNewlines(text))
        copies.push_back(line.toString());
    return copies;
}

TEST(SplitAtNewlines, emptyLines_areKept)
{
    EXPECT_EQ(lines(u"a\n\nb\n"_s), (std::vector{u"a"_s, u""_s, u"b"_s, u""_s}));
    EXPECT_EQ(lines(u""_s), std::vector{u""_s});
    EXPECT_EQ(lines(u"\n"_s), (std::vector{u""_s, u""_s}));
}

TEST(SplitAtNewlines, carriageReturnLineFeed_hasAnEmptyLineBetween)
{
    EXPECT_EQ(lines(u"a\r\nb"_s), (std::vector{u"a"_s, u""_s, u"b"_s}));
}

TEST(SplitAtNewlines, everyNewlineCharacter_endsALine)
{
    EXPECT_EQ(lines(u"1\u000A2\u000B3\u000C4\u000D5\u00856\u20287\u20298"_s).size(), 8U);
}

TEST(WellFormed, wellFormedText_isTheSameText)
{
    const QString text = u"a😀\u2028"_s + QChar(0);
    EXPECT_TRUE(Text::wellFormed(text).isSharedWith(text));
}

TEST(WellFormed, unpairedSurrogates_areReplaced)
{
    const QChar high(0xd83d);
    const QChar low(0xde00);
    const QString text = QString(low) + u"a"_s + high + high + low + low + high;
    EXPECT_EQ(Text::wellFormed(text), u"\uFFFDa\uFFFD😀\uFFFD\uFFFD"_s);
}

} // namespace
} // namespace sablequill
