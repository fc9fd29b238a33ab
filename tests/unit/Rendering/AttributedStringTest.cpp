// SPDX-License-Identifier: MIT
#include "AttributedString.h"

#include "RunPieces.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using test::pieces;
using test::Pieces;

RunAttributes withIntent(std::uint32_t intent)
{
    RunAttributes attributes;
    attributes.inlinePresentationIntent = intent;
    return attributes;
}

RunAttributes withFont(double size, FontWeight weight)
{
    RunAttributes attributes;
    attributes.font = RunFont{size, weight};
    return attributes;
}

TEST(AttributedString, append_otherAttributes_addsARun)
{
    AttributedString string;
    string.append(u"a"_s);
    string.append(u"b"_s, withIntent(InlinePresentationIntent::code));
    const Pieces expected{{u"a"_s}, {u"b"_s, withIntent(InlinePresentationIntent::code)}};
    EXPECT_EQ(pieces(string), expected);
}

TEST(AttributedString, append_equalAttributes_lengthensTheRun)
{
    AttributedString string;
    string.append(u"a"_s, withFont(16, FontWeight::bold));
    string.append(u"b"_s, withFont(16, FontWeight::bold));
    EXPECT_EQ(pieces(string), (Pieces{{u"ab"_s, withFont(16, FontWeight::bold)}}));
}

TEST(AttributedString, append_eachDifference_keepsRunsApart)
{
    RunAttributes colored;
    colored.foregroundColor = SemanticColor::primary;
    RunAttributes linked;
    linked.link = u"a"_s;
    const RunAttributes all[] = {{}, withIntent(InlinePresentationIntent::emphasized), colored,
        linked, withFont(16, FontWeight::bold), withFont(16, FontWeight::regular),
        withFont(17, FontWeight::regular)};
    AttributedString string;
    for (const RunAttributes& attributes : all)
        string.append(u"x"_s, attributes);
    EXPECT_EQ(string.runs.size(), std::size(all));
}

TEST(AttributedString, append_emptyText_changesNothing)
{
    AttributedString string;
    string.append(u""_s, withIntent(InlinePresentationIntent::code));
    EXPECT_TRUE(string.runs.empty());
    string.append(u"a"_s);
    string.append(u""_s, withIntent(InlinePresentationIntent::code));
    string.append(u"b"_s);
    EXPECT_EQ(pieces(string), (Pieces{{u"ab"_s}}));
}

TEST(AttributedString, append_anotherString_mergesAtTheSeam)
{
    AttributedString first;
    first.append(u"a"_s);
    AttributedString second;
    second.append(u"b"_s);
    second.append(u"c"_s, withIntent(InlinePresentationIntent::code));
    first.append(second);
    const Pieces expected{{u"ab"_s}, {u"c"_s, withIntent(InlinePresentationIntent::code)}};
    EXPECT_EQ(pieces(first), expected);
}

TEST(AttributedString, textOf_eachRun_isItsPartOfTheText)
{
    AttributedString string;
    string.append(u"a\n"_s);
    string.append(u"b"_s, withIntent(InlinePresentationIntent::code));
    EXPECT_EQ(string.text, u"a\nb"_s);
    EXPECT_EQ(string.textOf(string.runs[0]), u"a\n"_s);
    EXPECT_EQ(string.textOf(string.runs[1]), u"b"_s);
}

TEST(AttributedString, intents_haveTheNumbersOfTheirBits)
{
    EXPECT_EQ(InlinePresentationIntent::emphasized, 1U);
    EXPECT_EQ(InlinePresentationIntent::stronglyEmphasized, 2U);
    EXPECT_EQ(InlinePresentationIntent::code, 4U);
    EXPECT_EQ(InlinePresentationIntent::strikethrough, 32U);
    EXPECT_EQ(InlinePresentationIntent::inlineHTML, 256U);
}

} // namespace
} // namespace sablequill
