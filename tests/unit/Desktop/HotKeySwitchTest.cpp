// SPDX-License-Identifier: MIT
#include "HotKeySwitch.h"

#include "FakeHotKeyCenter.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr FakeHotKeyCenter::Combination g{5, 768};
constexpr FakeHotKeyCenter::Combination o{31, 768};

class HotKeySwitchTest : public testing::Test {
protected:
    std::optional<HotKeyRef> add(FakeHotKeyCenter::Combination combination, std::uint32_t number)
    {
        return choice.registerHotKey(combination.keyCode, combination.modifiers, {0, number});
    }

    static std::vector<std::uint32_t> heldBy(const FakeHotKeyCenter& center)
    {
        std::vector<std::uint32_t> numbers;
        for (const auto& [ref, hotKey] : center.hotKeys)
            numbers.push_back(hotKey.id.id);
        return numbers;
    }

    using Numbers = std::vector<std::uint32_t>;

    Journal journal;
    FakeHotKeyCenter grabs{journal};
    FakeHotKeyCenter desktop{journal};
    HotKeySwitch choice{grabs, desktop};
};

TEST_F(HotKeySwitchTest, register_atFirst_isGrabbed)
{
    add(g, 1);
    EXPECT_EQ(heldBy(grabs), Numbers{1});
    EXPECT_EQ(heldBy(desktop), Numbers{});
}

TEST_F(HotKeySwitchTest, setDesktopHolds_bothWays_movesAllThatIsRegistered)
{
    add(g, 1);
    add(o, 2);
    choice.setDesktopHolds(true);
    EXPECT_EQ(heldBy(grabs), Numbers{});
    EXPECT_EQ(heldBy(desktop), (Numbers{1, 2}));
    choice.setDesktopHolds(false);
    EXPECT_EQ(heldBy(grabs), (Numbers{1, 2}));
    EXPECT_EQ(heldBy(desktop), Numbers{});
}

TEST_F(HotKeySwitchTest, holder_always_isTheCurrentWay)
{
    EXPECT_FALSE(choice.holder().isDesktop);
    choice.setDesktopHolds(true);
    EXPECT_TRUE(choice.holder().isDesktop);
    choice.setDesktopHolds(false);
    EXPECT_FALSE(choice.holder().isDesktop);
}

TEST_F(HotKeySwitchTest, setDesktopHolds_always_letsGoOfAllBeforeItTakesAny)
{
    add(g, 1);
    add(o, 2);
    journal.take();
    choice.setDesktopHolds(true);
    EXPECT_EQ(journal.take(),
        (std::vector<std::string>{"hotKeys.unregisterHotKey(1)", "hotKeys.unregisterHotKey(2)",
            "hotKeys.registerHotKey(5, 768, 0, 1)", "hotKeys.registerHotKey(31, 768, 0, 2)"}));
}

TEST_F(HotKeySwitchTest, setDesktopHolds_asBefore_touchesNothing)
{
    add(g, 1);
    journal.take();
    choice.setDesktopHolds(false);
    EXPECT_TRUE(journal.take().empty());
    choice.setDesktopHolds(true);
    journal.take();
    choice.setDesktopHolds(true);
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(HotKeySwitchTest, register_whileTheDesktopHolds_goesThereAlone)
{
    choice.setDesktopHolds(true);
    add(g, 1);
    EXPECT_EQ(heldBy(grabs), Numbers{});
    EXPECT_EQ(heldBy(desktop), Numbers{1});
}

TEST_F(HotKeySwitchTest, register_ownedByAnotherProgram_isHeldByTheDesktopLater)
{
    grabs.ownedElsewhere.insert(g);
    EXPECT_TRUE(add(g, 1));
    EXPECT_EQ(heldBy(grabs), Numbers{});
    choice.setDesktopHolds(true);
    EXPECT_EQ(heldBy(desktop), Numbers{1});
    choice.setDesktopHolds(false);
    EXPECT_EQ(heldBy(desktop), Numbers{});
}

TEST_F(HotKeySwitchTest, unregister_afterAMove_letsGoWhereItIsHeld)
{
    const auto first = add(g, 1);
    const auto second = add(o, 2);
    choice.setDesktopHolds(true);
    choice.unregisterHotKey(*first);
    EXPECT_EQ(heldBy(desktop), Numbers{2});
    choice.setDesktopHolds(false);
    EXPECT_EQ(heldBy(grabs), Numbers{2});
    choice.unregisterHotKey(*second);
    EXPECT_EQ(heldBy(grabs), Numbers{});
}

TEST_F(HotKeySwitchTest, unregister_twiceOrNeverHeld_touchesNothing)
{
    grabs.ownedElsewhere.insert(o);
    const auto first = add(g, 1);
    const auto second = add(o, 2);
    choice.unregisterHotKey(*first);
    journal.take();
    choice.unregisterHotKey(*first);
    choice.unregisterHotKey(*second);
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(HotKeySwitchTest, press_eitherWay_reachesTheDispatcherOnce)
{
    int presses = 0;
    choice.installEventHandler(
        [](const HotKeyEvent&, void* count) {
            ++*static_cast<int*>(count);
            return HotKeyStatus::noError;
        },
        hotKeyPressed, &presses);
    add(g, 1);
    const auto pressEverywhere = [&] {
        grabs.press(g);
        desktop.press(g);
    };
    pressEverywhere();
    EXPECT_EQ(presses, 1);
    choice.setDesktopHolds(true);
    pressEverywhere();
    EXPECT_EQ(presses, 2);
}

} // namespace
} // namespace sablequill
