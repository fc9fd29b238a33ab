// SPDX-License-Identifier: MIT
#include "InlineLine.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <string>

namespace sablequill {
namespace {

using InlineMarkdown::InlineLine;
using namespace std::string_literals;

const std::string guard = "\xE2\x81\x9F";

std::string body(const InlineLine& line)
{
    const std::string& bytes = line.bytes();
    const std::string end = guard + "\n";
    EXPECT_TRUE(bytes.starts_with(guard) && bytes.ends_with(end));
    EXPECT_EQ(InlineLine::guardSize(), guard.size());
    return bytes.substr(guard.size(), bytes.size() - guard.size() - end.size());
}

std::string asText(const InlineLine& line, std::string_view literal)
{
    std::string typed;
    line.appendText(literal, typed);
    return typed;
}

std::string verbatim(const InlineLine& line, std::string_view literal)
{
    std::string typed;
    line.appendVerbatim(literal, typed);
    return typed;
}

struct EncodingCase {
    const char* name;
    std::string text;
    std::string body;
};

constexpr auto rowName = [](const auto& info) { return std::string(info.param.name); };

std::ostream& operator<<(std::ostream& out, const EncodingCase& row)
{
    return out << row.name;
}

class InlineLineEncoding : public testing::TestWithParam<EncodingCase> { };

TEST_P(InlineLineEncoding, bytes_row_areThisBody)
{
    EXPECT_EQ(body(InlineLine(GetParam().text)), GetParam().body);
}

INSTANTIATE_TEST_SUITE_P(Breaks, InlineLineEncoding,
    testing::Values(EncodingCase{"none", "a b", "a b"}, EncodingCase{"empty", "", ""},
        EncodingCase{"lineFeed", "a\nb", "a\t\fb"},
        EncodingCase{"carriageReturn", "a\rb", "a\t\f\f\fb"},
        EncodingCase{"pair", "a\r\nb", "a\t\f\f\f\f\fb"},
        EncodingCase{"reversedPair", "\n\r", "\t\f\t\f\f\f"},
        EncodingCase{"behindABackslash", "a\\\n", "a\\\t\f\f"},
        EncodingCase{"behindTwoBackslashes", "a\\\\\n", "a\\\\\t\f"},
        EncodingCase{"behindThreeBackslashes", "\\\\\\\n", "\\\\\\\t\f\f"},
        EncodingCase{"carriageReturnBehindABackslash", "\\\r", "\\\t\f\f\f\f"},
        EncodingCase{"pairBehindABackslash", "\\\r\n", "\\\t\f\f\f\f\f\f"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Bytes, InlineLineEncoding,
    testing::Values(EncodingCase{"zero", "a\0b"s,
                        "a\xEF\xBF\xBD"
                        "b"},
        EncodingCase{"formFeed", "a\fb",
            "a\xE2\x80\x80"
            "b"},
        EncodingCase{"formFeedReference", "&#12;&#x0C;&#xc;", "&\f\f#12;&\f\f#x0C;&\f\f#xc;"},
        EncodingCase{"eightDigits", "&#00000012;", "&\f\f#00000012;"},
        EncodingCase{"nineDigits", "&#000000012;", "&#000000012;"},
        EncodingCase{
            "otherReferences", "&#13;&#120;&#12&#;&#x;&ff;", "&#13;&#120;&#12&#;&#x;&ff;"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Openers, InlineLineEncoding,
    testing::Values(EncodingCase{"closed", "<?a?>", "<?a?>"},
        EncodingCase{"unclosed", "<b><?a", "<b><\f\f?a"},
        EncodingCase{"each", "<?<!A <![CDATA[", "<\f\f?<\f\f!A <\f\f![CDATA["}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Destinations, InlineLineEncoding,
    testing::Values(EncodingCase{"onOneLine", "[a](<b c>)", "[a](<b c>)"},
        EncodingCase{"broken", "[a](<b\nc>)", "[a]\f\f(<b\t\fc>)"},
        EncodingCase{"brokenBehindBlanks", "[a]( \n <b\nc>)", "[a]\f\f( \t\f <b\t\fc>)"},
        EncodingCase{"breakOnlyBeforeIt", "[a](\n<b>)", "[a](\t\f<b>)"},
        EncodingCase{"breakOnlyBehindIt", "[a](<b>\n)", "[a](<b>\t\f)"},
        EncodingCase{"escapedEnd", "[a](<b\\>\nc>)", "[a]\f\f(<b\\>\t\fc>)"},
        EncodingCase{"escapedBreak", "[a](<b\\\nc>)", "[a]\f\f(<b\\\t\f\fc>)"},
        EncodingCase{"backslashBeforeEscape", "[a](<b\\\\>\n", "[a](<b\\\\>\t\f"},
        EncodingCase{"secondOpener", "[a](<b<\nc>)", "[a](<b<\t\fc>)"},
        EncodingCase{"notInAngles", "[a](b\nc>)", "[a](b\t\fc>)"},
        EncodingCase{"cut", "[a](<", "[a](<"}, EncodingCase{"cutBehindBlanks", "](  ", "](  "}),
    rowName);

TEST(InlineLine, bytes_standInIsTyped_takesTheNext)
{
    EXPECT_EQ(body(InlineLine("\f\xE2\x80\x80")), "\xE2\x80\x81\xE2\x80\x80");
    EXPECT_EQ(body(InlineLine("\f&#x2000;&#8193;")), "\xE2\x80\x86&#x2000;&#8193;");
}

TEST(InlineLine, bytes_allStandInsAreTyped_takesTheGuardForGood)
{
    const std::string taken =
        "\xE2\x80\x80\xE2\x80\x81\xE2\x80\x86\xE1\x9A\x80\xE2\x80\xAF\xE3\x80\x80";
    const InlineLine line(taken + "\f");
    EXPECT_EQ(body(line), taken + guard);
    EXPECT_EQ(asText(line, body(line)), taken + guard);
}

TEST(InlineLine, appendText_breakBehindABackslash_takesTheBackslash)
{
    for (const std::string lineBreak : {"\n", "\r", "\r\n"}) {
        const InlineLine line("a\\" + lineBreak + "b\\\\" + lineBreak);
        EXPECT_EQ(asText(line, body(line)), "a" + lineBreak + "b\\\\" + lineBreak);
        EXPECT_EQ(verbatim(line, body(line)), "a\\" + lineBreak + "b\\\\" + lineBreak);
    }
}

TEST(InlineLine, appendText_backslashCameBeforeTheLiteral_isTakenToo)
{
    const InlineLine line("\\\n");
    std::string typed = "a\\";
    line.appendText("\t\f\f", typed);
    EXPECT_EQ(typed, "a\n");
}

TEST(InlineLine, appendText_noBackslashThere_takesNothing)
{
    const InlineLine line("");
    std::string typed = "a";
    line.appendText("\t\f\f", typed);
    EXPECT_EQ(typed, "a\n");
}

TEST(InlineLine, appendVerbatim_typedTabs_stay)
{
    const InlineLine line("\t\n\t\t\r\t<?\t](<\t\n");
    EXPECT_EQ(verbatim(line, body(line)), "\t\n\t\t\r\t<?\t](<\t\n");
}

/// What is written into the line comes out of it again, whatever the text.
TEST(InlineLine, appendVerbatim_wholeBody_isTheTextAgain)
{
    const std::string_view pieces[] = {"a", "\\", "\n", "\r", "\t", "\f", " ", "<", "?", "!A", "](",
        "<![CDATA[", ">", "&#12;", "&#x2000;", "\xE2\x80\x80", "\xE2\x80\x81", "\xC3\xA9"};
    std::mt19937 random(1);
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (auto count = random() % 20; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        const InlineLine line(text);
        ASSERT_EQ(verbatim(line, body(line)), text);
    }
}

} // namespace
} // namespace sablequill
