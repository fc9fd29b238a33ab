// SPDX-License-Identifier: MIT
#include "KeyboardShortcutBinding.h"

#include "KeyCodeMapper.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <vector>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using Flags = KeyboardShortcutBinding::ModifierFlags;

TEST(ModifierFlags, named_ownNumberingAndServiceMasks)
{
    EXPECT_EQ(Flags::command.rawValue, 1U);
    EXPECT_EQ(Flags::shift.rawValue, 2U);
    EXPECT_EQ(Flags::option.rawValue, 4U);
    EXPECT_EQ(Flags::control.rawValue, 8U);
    EXPECT_EQ(Flags::command.carbonFlags(), 256U);
    EXPECT_EQ(Flags::shift.carbonFlags(), 512U);
    EXPECT_EQ(Flags::option.carbonFlags(), 2048U);
    EXPECT_EQ(Flags::control.carbonFlags(), 4096U);
}

TEST(ModifierFlags, carbonFlags_unionOfMasks)
{
    EXPECT_EQ(Flags{}.carbonFlags(), 0U);
    EXPECT_EQ((Flags::command | Flags::shift).carbonFlags(), 768U);
    EXPECT_EQ(Flags{15}.carbonFlags(), 6912U);
}

TEST(ModifierFlags, unnamedBits_areKeptAndContributeNothing)
{
    EXPECT_EQ(Flags{16}.rawValue, 16U);
    EXPECT_EQ(Flags{16}.carbonFlags(), 0U);
    EXPECT_EQ(Flags{0xFFFFFFF0}.carbonFlags(), 0U);
    EXPECT_EQ(Flags{0xFFFFFFFF}.carbonFlags(), 6912U);
}

TEST(ModifierFlags, setOperations_workOnBits)
{
    Flags flags = Flags::shift;
    flags.insert(Flags::control);
    EXPECT_TRUE(flags.contains(Flags::shift));
    EXPECT_TRUE(flags.contains(Flags::shift | Flags::control));
    EXPECT_FALSE(flags.contains(Flags::command));
    EXPECT_FALSE(flags.contains(Flags::command | Flags::shift));
    EXPECT_TRUE(flags.contains(Flags{}));
    flags.remove(Flags::shift);
    EXPECT_EQ(flags, Flags::control);
    flags.remove(Flags::shift);
    EXPECT_EQ(flags, Flags::control);
}

TEST(DisplayString, allModifiers_fixedOrderWhateverTheInsertion)
{
    std::vector order{Flags::command, Flags::shift, Flags::option, Flags::control};
    const auto less = [](Flags a, Flags b) { return a.rawValue < b.rawValue; };
    do {
        KeyboardShortcutBinding binding{5, {}};
        for (const Flags flag : order)
            binding.modifiers.insert(flag);
        EXPECT_EQ(binding.displayString(), u"⌃⌥⇧⌘G"_s);
    } while (std::next_permutation(order.begin(), order.end(), less));
}

TEST(DisplayString, signs_areTheirCodePoints)
{
    EXPECT_EQ((KeyboardShortcutBinding{0, Flags{15}}.displayString()),
        QString(u"\u2303\u2325\u21E7\u2318A"_s));
}

TEST(DisplayString, noOrUnnamedModifiers_onlyTheKey)
{
    EXPECT_EQ((KeyboardShortcutBinding{5, {}}.displayString()), u"G"_s);
    EXPECT_EQ((KeyboardShortcutBinding{5, Flags{16}}.displayString()), u"G"_s);
}

TEST(DisplayString, keyWithoutCharacter_questionMark)
{
    EXPECT_EQ((KeyboardShortcutBinding{32, Flags::command}.displayString()), u"⌘?"_s);
}

TEST(Binding, equality_bothFields)
{
    const KeyboardShortcutBinding binding{5, Flags::command};
    EXPECT_EQ(binding, (KeyboardShortcutBinding{5, Flags::command}));
    EXPECT_NE(binding, (KeyboardShortcutBinding{6, Flags::command}));
    EXPECT_NE(binding, (KeyboardShortcutBinding{5, Flags::shift}));
    EXPECT_NE(binding, (KeyboardShortcutBinding{5, Flags{17}}));
}

TEST(Binding, hash_followsBothFields)
{
    const std::hash<KeyboardShortcutBinding> hash;
    EXPECT_EQ(hash({5, Flags{3}}), hash({5, Flags{3}}));
    EXPECT_NE(hash({5, Flags{3}}), hash({5, Flags{2}}));
    EXPECT_NE(hash({5, Flags{3}}), hash({3, Flags{5}}));
    EXPECT_EQ(std::hash<Flags>{}(Flags{3}), std::hash<Flags>{}(Flags::command | Flags::shift));
}

TEST(KeyCodeMapper, everyCode_asListed)
{
    const std::map<std::uint32_t, QString> listed{{0, u"A"_s}, {1, u"S"_s}, {2, u"D"_s},
        {3, u"F"_s}, {4, u"H"_s}, {5, u"G"_s}, {6, u"Z"_s}, {7, u"X"_s}, {8, u"C"_s}, {9, u"V"_s},
        {11, u"B"_s}, {12, u"Q"_s}, {13, u"W"_s}, {14, u"E"_s}, {15, u"R"_s}, {16, u"Y"_s},
        {17, u"T"_s}, {31, u"O"_s}, {34, u"I"_s}, {35, u"P"_s}, {37, u"L"_s}, {38, u"J"_s},
        {40, u"K"_s}, {45, u"N"_s}, {46, u"M"_s}, {123, u"\u2190"_s}, {124, u"\u2192"_s},
        {125, u"\u2193"_s}, {126, u"\u2191"_s}};
    for (std::uint32_t code = 0; code < 512; ++code) {
        const auto row = listed.find(code);
        EXPECT_EQ(KeyCodeMapper::displayCharacter(code), row == listed.end() ? u"?"_s : row->second)
            << code;
    }
    EXPECT_EQ(KeyCodeMapper::displayCharacter(4294967295U), u"?"_s);
}

} // namespace
} // namespace sablequill
