// SPDX-License-Identifier: MIT
#include "MarkdownParser.h"

#include "MarkdownParserPrivate.h"
#include "RunPieces.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using test::Piece;
using test::pieces;
using test::Pieces;

const QChar unpairedSurrogate(0xD800);

Piece styled(const QString& text, double size, FontWeight weight = FontWeight::regular,
    std::optional<SemanticColor> color = {})
{
    RunAttributes attributes;
    attributes.font = RunFont{size, weight};
    attributes.foregroundColor = color;
    return {text, attributes};
}

Piece withIntent(Piece piece, std::uint32_t intent)
{
    piece.attributes.inlinePresentationIntent = intent;
    return piece;
}

Piece bold(const QString& text)
{
    return styled(text, 16, FontWeight::bold);
}

const Piece separator{u"\n"_s};
const Piece bullet = styled(u"  \u2022  "_s, 16, FontWeight::regular, SemanticColor::secondary);

TEST(MarkdownParser, attributedString_strong_isBoldAtTheBaseSize)
{
    const Pieces expected{styled(u"Hello "_s, 16),
        withIntent(bold(u"world"_s), InlinePresentationIntent::stronglyEmphasized)};
    EXPECT_EQ(pieces(MarkdownParser::attributedString(u"Hello **world**"_s, 16)), expected);
}

TEST(MarkdownParser, attributedString_emphasis_isRegular)
{
    const Pieces expected{withIntent(styled(u"hi"_s, 16), InlinePresentationIntent::emphasized)};
    EXPECT_EQ(pieces(MarkdownParser::attributedString(u"*hi*"_s, 16)), expected);
}

TEST(MarkdownParser, attributedString_heading_staysLiteral)
{
    EXPECT_EQ(pieces(MarkdownParser::attributedString(u"# Title"_s, 22)),
        (Pieces{styled(u"# Title"_s, 22)}));
}

TEST(MarkdownParser, attributedString_strongAmongOthers_isBoldAndKeepsItsIntents)
{
    const auto string = MarkdownParser::attributedString(u"***~~[`a`](b)~~***"_s, 13.5);
    ASSERT_EQ(string.runs.size(), 1U);
    const RunAttributes& attributes = string.runs.front().attributes;
    EXPECT_EQ(attributes.font, (RunFont{13.5, FontWeight::bold}));
    EXPECT_EQ(attributes.inlinePresentationIntent, 1U + 2U + 4U + 32U);
    EXPECT_EQ(attributes.link, u"b"_s);
    EXPECT_FALSE(attributes.foregroundColor);
}

TEST(MarkdownParser, attributedString_codeStruckTextAndLinks_areRegularWithoutColor)
{
    for (const QString& text : {u"`a`"_s, u"~~a~~"_s, u"[a](b)"_s, u"<a>"_s, u"a"_s}) {
        const auto string = MarkdownParser::attributedString(text, 16);
        ASSERT_EQ(string.runs.size(), 1U);
        EXPECT_EQ(string.runs[0].attributes.font, (RunFont{16, FontWeight::regular}));
        EXPECT_FALSE(string.runs[0].attributes.foregroundColor);
    }
}

TEST(MarkdownParser, attributedString_empty_hasNoRuns)
{
    EXPECT_TRUE(MarkdownParser::attributedString({}, 16).runs.empty());
}

TEST(MarkdownParser, attributedString_unpairedSurrogate_fallsBack)
{
    const QString text = u"# A\n**b** *c* "_s + unpairedSurrogate;
    const auto string = MarkdownParser::attributedString(text, 16);
    EXPECT_EQ(string, MarkdownParser::manualParse(text, 16));
    const Pieces expected{styled(u"A"_s, 22, FontWeight::semibold, SemanticColor::primary),
        separator, bold(u"b"_s), styled(u" *c* "_s + unpairedSurrogate, 16)};
    EXPECT_EQ(pieces(string), expected);
}

TEST(MarkdownParser, applyTypography_anyFontBefore_isReplaced)
{
    AttributedString string = test::joined({
        styled(u"a"_s, 30, FontWeight::semibold, SemanticColor::primary),
        withIntent(styled(u"b"_s, 30), InlinePresentationIntent::stronglyEmphasized),
        {u"c"_s},
    });
    MarkdownParser::applyTypography(string, 16);
    const Pieces expected{styled(u"a"_s, 16, FontWeight::regular, SemanticColor::primary),
        withIntent(bold(u"b"_s), InlinePresentationIntent::stronglyEmphasized), styled(u"c"_s, 16)};
    EXPECT_EQ(pieces(string), expected);
}

struct ParsingCase {
    const char* name;
    QString text;
    Pieces runs;
};

constexpr auto rowName = [](const auto& info) { return std::string(info.param.name); };

std::ostream& operator<<(std::ostream& out, const ParsingCase& row)
{
    return out << row.name;
}

class ManualParse : public testing::TestWithParam<ParsingCase> { };

TEST_P(ManualParse, manualParse_row_givesTheseRuns)
{
    EXPECT_EQ(pieces(MarkdownParser::manualParse(GetParam().text, 16)), GetParam().runs);
}

Piece largeHeading(const QString& text)
{
    return styled(text, 22, FontWeight::semibold, SemanticColor::primary);
}

Piece smallHeading(const QString& text)
{
    return styled(text, 19, FontWeight::semibold);
}

INSTANTIATE_TEST_SUITE_P(Headings, ManualParse,
    testing::Values(ParsingCase{"large", u"# A"_s, {largeHeading(u"A"_s)}},
        ParsingCase{"small", u"## B"_s, {smallHeading(u"B"_s)}},
        ParsingCase{"notParsedFurther", u"# **A** - b"_s, {largeHeading(u"**A** - b"_s)}},
        ParsingCase{"smallNotParsedFurther", u"## **A**"_s, {smallHeading(u"**A**"_s)}},
        ParsingCase{"trimmed", u" \t# A \u3000"_s, {largeHeading(u"A"_s)}},
        ParsingCase{"innerSpacesStay", u"#  A  b"_s, {largeHeading(u" A  b"_s)}},
        ParsingCase{"markInMark", u"# ## A"_s, {largeHeading(u"## A"_s)}},
        ParsingCase{"thirdLevelIsPlain", u"### A"_s, {styled(u"### A"_s, 16)}},
        ParsingCase{"withoutSpaceIsPlain", u"#A"_s, {styled(u"#A"_s, 16)}},
        ParsingCase{"markAloneIsPlain", u"# "_s, {styled(u"# "_s, 16)}},
        ParsingCase{"tabIsNoSpace", u"#\tA"_s, {styled(u"#\tA"_s, 16)}}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Bullets, ManualParse,
    testing::Values(ParsingCase{"hyphen", u"- c"_s, {bullet, styled(u"c"_s, 16)}},
        ParsingCase{"star", u"* c"_s, {bullet, styled(u"c"_s, 16)}},
        ParsingCase{"indented", u"  - item"_s, {bullet, styled(u"item"_s, 16)}},
        ParsingCase{"boldInside", u"- a **b**"_s, {bullet, styled(u"a "_s, 16), bold(u"b"_s)}},
        ParsingCase{"trimmedAtTheEnd", u"- c  "_s, {bullet, styled(u"c"_s, 16)}},
        ParsingCase{"bulletInABullet", u"- - c"_s, {bullet, styled(u"- c"_s, 16)}},
        ParsingCase{"headingInABullet", u"- # c"_s, {bullet, styled(u"# c"_s, 16)}},
        ParsingCase{"unmatchedPair", u"* **c"_s, {bullet, styled(u"**c"_s, 16)}},
        ParsingCase{"markAloneIsPlain", u"- "_s, {styled(u"- "_s, 16)}},
        ParsingCase{"withoutSpaceIsPlain", u"-c"_s, {styled(u"-c"_s, 16)}},
        ParsingCase{"plusIsPlain", u"+ c"_s, {styled(u"+ c"_s, 16)}},
        ParsingCase{"numberIsPlain", u"1. c"_s, {styled(u"1. c"_s, 16)}}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Lines, ManualParse,
    testing::Values(ParsingCase{"empty", u""_s, {}},
        ParsingCase{"plain", u"a"_s, {styled(u"a"_s, 16)}},
        ParsingCase{
            "emptyLineBetween", u"a\n\nb"_s, {styled(u"a"_s, 16), {u"\n\n"_s}, styled(u"b"_s, 16)}},
        ParsingCase{"leadingBreak", u"\na"_s, {separator, styled(u"a"_s, 16)}},
        ParsingCase{"trailingBreak", u"a\n"_s, {styled(u"a"_s, 16), separator}},
        ParsingCase{"indentStays", u"  a  "_s, {styled(u"  a  "_s, 16)}},
        ParsingCase{
            "blankLineStays", u"a\n \t"_s, {styled(u"a"_s, 16), separator, styled(u" \t"_s, 16)}},
        ParsingCase{"pairYieldsAnEmptyLine", u"a\r\nb"_s,
            {styled(u"a"_s, 16), {u"\n\n"_s}, styled(u"b"_s, 16)}},
        ParsingCase{"everyNewline", u"a\vb\fc\rd\u0085e\u2028f\u2029g"_s,
            {styled(u"a"_s, 16), separator, styled(u"b"_s, 16), separator, styled(u"c"_s, 16),
                separator, styled(u"d"_s, 16), separator, styled(u"e"_s, 16), separator,
                styled(u"f"_s, 16), separator, styled(u"g"_s, 16)}},
        ParsingCase{"kindsMixed", u"# A\n- b\nc"_s,
            {largeHeading(u"A"_s), separator, bullet, styled(u"b"_s, 16), separator,
                styled(u"c"_s, 16)}},
        ParsingCase{"boldEndsWithItsLine", u"**a\nb**"_s,
            {styled(u"**a"_s, 16), separator, styled(u"b**"_s, 16)}}),
    rowName);

class ParseInline : public testing::TestWithParam<ParsingCase> { };

TEST_P(ParseInline, parseInline_row_givesTheseRuns)
{
    EXPECT_EQ(pieces(MarkdownParser::parseInline(GetParam().text, 16)), GetParam().runs);
}

INSTANTIATE_TEST_SUITE_P(Rows, ParseInline,
    testing::Values(ParsingCase{"empty", u""_s, {}},
        ParsingCase{"plain", u"a b"_s, {styled(u"a b"_s, 16)}},
        ParsingCase{
            "bold", u"a **b** c"_s, {styled(u"a "_s, 16), bold(u"b"_s), styled(u" c"_s, 16)}},
        ParsingCase{"boldAlone", u"**b**"_s, {bold(u"b"_s)}},
        ParsingCase{"twoBold", u"**a** **b**"_s, {bold(u"a"_s), styled(u" "_s, 16), bold(u"b"_s)}},
        ParsingCase{"fourStars", u"****"_s, {}},
        ParsingCase{"fourStarsInside", u"a****b"_s, {styled(u"ab"_s, 16)}},
        ParsingCase{"fiveStars", u"*****"_s, {styled(u"*"_s, 16)}},
        ParsingCase{"sixStars", u"******"_s, {styled(u"**"_s, 16)}},
        ParsingCase{"threeStars", u"***a**"_s, {bold(u"*a"_s)}},
        ParsingCase{"twoStars", u"**"_s, {styled(u"**"_s, 16)}},
        ParsingCase{"unmatchedAtTheStart", u"**a"_s, {styled(u"**a"_s, 16)}},
        ParsingCase{"unmatchedBehindText", u"a **b"_s, {styled(u"a **b"_s, 16)}},
        ParsingCase{"unmatchedBehindBold", u"**a** b**c"_s, {bold(u"a"_s), styled(u" b**c"_s, 16)}},
        ParsingCase{"unmatchedThreeStars", u"***a"_s, {styled(u"***a"_s, 16)}},
        ParsingCase{"otherMarksAreLiteral", u"*a* _b_ `c` ~~d~~ [e](f)"_s,
            {styled(u"*a* _b_ `c` ~~d~~ [e](f)"_s, 16)}},
        ParsingCase{"backslashIsLiteral", u"\\**a**"_s, {styled(u"\\"_s, 16), bold(u"a"_s)}},
        ParsingCase{"markInsideBoldIsLiteral", u"**a *b* `c`**"_s, {bold(u"a *b* `c`"_s)}}),
    rowName);

TEST(MarkdownParser, manualParse_megabyteOfStars_isRead)
{
    const QString text = u"**"_s.repeated(500'001);
    EXPECT_EQ(pieces(MarkdownParser::manualParse(text, 16)), (Pieces{styled(u"**"_s, 16)}));
}

} // namespace
} // namespace sablequill
