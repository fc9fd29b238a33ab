// SPDX-License-Identifier: MIT
#include "HotkeyAction.h"

#include <gtest/gtest.h>

#include <unordered_set>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

struct ActionCase {
    HotkeyAction action;
    QString rawValue;
    QString displayName;
    std::uint32_t keyCode;
    QString displayString;
    int hotkeyID;
};

void PrintTo(const ActionCase& row, std::ostream* out)
{
    *out << row.rawValue.toStdString();
}

class EveryHotkeyAction : public testing::TestWithParam<ActionCase> { };

TEST_P(EveryHotkeyAction, properties_asListed)
{
    const ActionCase& row = GetParam();
    EXPECT_EQ(rawValue(row.action), row.rawValue);
    EXPECT_EQ(hotkeyActionFromRawValue(row.rawValue), row.action);
    EXPECT_EQ(displayName(row.action), row.displayName);
    EXPECT_EQ(defaultShortcut(row.action).keyCode, row.keyCode);
    EXPECT_EQ(defaultShortcut(row.action).modifiers.rawValue, 3U);
    EXPECT_EQ(defaultShortcut(row.action).displayString(), row.displayString);
    EXPECT_EQ(hotkeyID(row.action), row.hotkeyID);
}

INSTANTIATE_TEST_SUITE_P(Rows, EveryHotkeyAction,
    testing::Values(ActionCase{HotkeyAction::toggleOverlay, u"toggleOverlay"_s, u"Toggle Overlay"_s,
                        5, u"⇧⌘G"_s, 1},
        ActionCase{HotkeyAction::quickOpen, u"quickOpen"_s, u"Quick Open"_s, 31, u"⇧⌘O"_s, 2},
        ActionCase{HotkeyAction::nextNote, u"nextNote"_s, u"Next Note"_s, 125, u"⇧⌘↓"_s, 3},
        ActionCase{
            HotkeyAction::previousNote, u"previousNote"_s, u"Previous Note"_s, 126, u"⇧⌘↑"_s, 4}));

TEST(HotkeyAction, allActions_inDeclaredOrder)
{
    ASSERT_EQ(allHotkeyActions.size(), 4U);
    for (std::size_t i = 0; i < allHotkeyActions.size(); ++i)
        EXPECT_EQ(hotkeyID(allHotkeyActions.at(i)), static_cast<int>(i) + 1);
}

TEST(HotkeyAction, fromOtherStrings_nothing)
{
    for (const auto& other : {u"ToggleOverlay"_s, u"toggleoverlay"_s, u"toggleOverlay "_s,
             u"Toggle Overlay"_s, u"0"_s, u""_s, QString()})
        EXPECT_EQ(hotkeyActionFromRawValue(other), std::nullopt) << other.toStdString();
}

TEST(HotkeyAction, hashed_fourDifferentOnes)
{
    const std::unordered_set<HotkeyAction> actions(
        allHotkeyActions.begin(), allHotkeyActions.end());
    EXPECT_EQ(actions.size(), 4U);
}

} // namespace
} // namespace sablequill
