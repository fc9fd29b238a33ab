// SPDX-License-Identifier: MIT
#include "KeyPositions.h"
#include "KeyboardMap.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace sablequill {
namespace {

struct PositionRow {
    std::uint32_t keyCode;
    std::optional<std::uint8_t> expected;
};

class KeyPositions : public testing::TestWithParam<PositionRow> { };

TEST_P(KeyPositions, serverKeyCode_isThePlaceOnTheKeyboard)
{
    EXPECT_EQ(serverKeyCode(GetParam().keyCode), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Rows, KeyPositions,
    testing::Values(PositionRow{0, 38}, PositionRow{5, 42}, PositionRow{31, 32},
        PositionRow{32, 30}, PositionRow{0x24, 36}, PositionRow{0x31, 65}, PositionRow{123, 113},
        PositionRow{124, 114}, PositionRow{125, 116}, PositionRow{126, 111}, PositionRow{0x7A, 67},
        PositionRow{0x3F, {}}, PositionRow{0x34, {}}, PositionRow{0x80, {}},
        PositionRow{4294967295, {}}));

TEST(KeyboardMapTest, serverMask_translatesEachModifier)
{
    const KeyboardMap map{.super = 0x40, .alt = 0x08, .numLock = 0x10};
    EXPECT_EQ(map.serverMask(0), 0);
    EXPECT_EQ(map.serverMask(256), 0x40);
    EXPECT_EQ(map.serverMask(512), 0x01);
    EXPECT_EQ(map.serverMask(2048), 0x08);
    EXPECT_EQ(map.serverMask(4096), 0x04);
    EXPECT_EQ(map.serverMask(256 | 512 | 2048 | 4096), 0x4d);
}

TEST(KeyboardMapTest, serverMask_withoutTheModifier_isNothing)
{
    const KeyboardMap map{.super = 0, .alt = 0x08};
    EXPECT_EQ(map.serverMask(256 | 512), std::nullopt);
    EXPECT_EQ(map.serverMask(2048), 0x08);
}

TEST(KeyboardMapTest, lockVariants_areAllCombinationsOfTheLocks)
{
    std::vector<std::uint16_t> variants = KeyboardMap{.numLock = 0x10}.lockVariants();
    std::sort(variants.begin(), variants.end());
    EXPECT_EQ(variants, (std::vector<std::uint16_t>{0, 2, 0x10, 0x12}));

    EXPECT_EQ((KeyboardMap{.numLock = 0x10, .scrollLock = 0x20}.lockVariants().size()), 8U);
    EXPECT_EQ((KeyboardMap{}.lockVariants().size()), 2U);
}

TEST(KeyboardMapTest, significantMask_leavesTheLocksOut)
{
    EXPECT_EQ((KeyboardMap{.numLock = 0x10, .scrollLock = 0x20}.significantMask()), 0xcd);
}

} // namespace
} // namespace sablequill
