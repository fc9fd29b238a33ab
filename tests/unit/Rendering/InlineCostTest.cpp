// SPDX-License-Identifier: MIT
#include "InlineCost.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

namespace sablequill {
namespace {

using namespace InlineMarkdown;
using Pieces = std::vector<std::string_view>;

struct CostCase {
    const char* name;
    std::string text;
    std::uint64_t cost;
};

constexpr auto rowName = [](const auto& info) { return std::string(info.param.name); };

std::ostream& operator<<(std::ostream& out, const CostCase& row)
{
    return out << row.name;
}

class QuadraticCost : public testing::TestWithParam<CostCase> { };

TEST_P(QuadraticCost, quadraticCost_row_isThis)
{
    EXPECT_EQ(quadraticCost(GetParam().text), GetParam().cost);
}

INSTANTIATE_TEST_SUITE_P(Rows, QuadraticCost,
    testing::Values(CostCase{"empty", "", 0}, CostCase{"prose", "a (b) [c] !d", 0},
        CostCase{"linksAlone", "[a](b)[a](b)", 0}, CostCase{"imagesAlone", "![a ![b", 0},
        CostCase{"runsCountOnce", "***a~~ __", 9}, CostCase{"neighborsCountEach", "*_~*", 16},
        CostCase{"linksAndRuns", "*a*[b](c)", 6}, CostCase{"linksAndImages", "![a![b](c)](d)", 4},
        CostCase{"firstCharacter", "[", 0}),
    rowName);

TEST(QuadraticCost, quadraticCost_beyondTheParsersSizes_isHuge)
{
    EXPECT_EQ(quadraticCost(std::string(16U << 20U, 'a')), 0U);
    EXPECT_EQ(quadraticCost(std::string((16U << 20U) + 1, 'a')),
        std::numeric_limits<std::uint64_t>::max());
}

TEST(Splitting, splitBehindLineBreaks_eachKind_staysWithItsLine)
{
    EXPECT_EQ(splitBehindLineBreaks("a\nb\rc\r\n\nd"), (Pieces{"a\n", "b\r", "c\r\n", "\n", "d"}));
    EXPECT_EQ(splitBehindLineBreaks("a\r"), (Pieces{"a\r"}));
    EXPECT_EQ(splitBehindLineBreaks("a"), (Pieces{"a"}));
    EXPECT_EQ(splitBehindLineBreaks(""), Pieces{});
}

TEST(Splitting, splitBehindBlankLines_eachBlankLine_endsAPiece)
{
    EXPECT_EQ(splitBehindBlankLines("a\nb\n\nc\n \t\nd"), (Pieces{"a\nb\n\n", "c\n \t\n", "d"}));
    EXPECT_EQ(splitBehindBlankLines("\n\na\r\n\r\n"), (Pieces{"\n", "\n", "a\r\n\r\n"}));
    EXPECT_EQ(splitBehindBlankLines("a\n"), (Pieces{"a\n"}));
    EXPECT_EQ(splitBehindBlankLines("a\n "), (Pieces{"a\n "}));
    EXPECT_EQ(splitBehindBlankLines(""), Pieces{});
}

} // namespace
} // namespace sablequill
