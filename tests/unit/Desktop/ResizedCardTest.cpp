// SPDX-License-Identifier: MIT
#include "ResizeHandles.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr QRect card(100, 200, 420, 280);
constexpr QSize minimum(280, 160);

struct PullRow {
    const char* name;
    QMargins grip;
    QPoint way;
    QRect expected;
};

class ResizedCard : public testing::TestWithParam<PullRow> { };

TEST_P(ResizedCard, pull_keepsTheOppositeEdgesAndTheMinimum)
{
    const PullRow& row = GetParam();
    EXPECT_EQ(resizedCard(card, row.grip, row.way, minimum), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, ResizedCard,
    testing::Values(PullRow{"leftOut", {1, 0, 0, 0}, {-30, 50}, {70, 200, 450, 280}},
        PullRow{"leftFarIn", {1, 0, 0, 0}, {400, 0}, {240, 200, 280, 280}},
        PullRow{"rightOut", {0, 0, 1, 0}, {30, 50}, {100, 200, 450, 280}},
        PullRow{"rightFarIn", {0, 0, 1, 0}, {-900, 0}, {100, 200, 280, 280}},
        PullRow{"topOut", {0, 1, 0, 0}, {9, -20}, {100, 180, 420, 300}},
        PullRow{"topFarIn", {0, 1, 0, 0}, {0, 500}, {100, 320, 420, 160}},
        PullRow{"bottomOut", {0, 0, 0, 1}, {9, 20}, {100, 200, 420, 300}},
        PullRow{"bottomFarIn", {0, 0, 0, 1}, {0, -500}, {100, 200, 420, 160}},
        PullRow{"topLeftFarIn", {1, 1, 0, 0}, {900, 900}, {240, 320, 280, 160}},
        PullRow{"topRight", {0, 1, 1, 0}, {10, -10}, {100, 190, 430, 290}},
        PullRow{"bottomLeft", {1, 0, 0, 1}, {-10, 10}, {90, 200, 430, 290}},
        PullRow{"bottomRight", {0, 0, 1, 1}, {10, 10}, {100, 200, 430, 290}}),
    [](const auto& info) { return info.param.name; });

TEST(ResizedCardBelowMinimum, pull_growsToTheMinimum)
{
    EXPECT_EQ(resizedCard({0, 0, 100, 50}, {0, 0, 1, 1}, {1, 1}, minimum), QRect(0, 0, 280, 160));
}

} // namespace
} // namespace sablequill
