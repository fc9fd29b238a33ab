// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

namespace sablequill {
namespace {

class HotKeyTest : public OverlayTest {
protected:
    /// Changes the keyboard's settings.
    void runInSession(const std::vector<std::string>& command)
    {
        session.spend();
        runCommand({command, session.environment(user), user.path() / "command.log"});
    }
    void expectShows(const QImage& picture, const char* what)
    {
        EXPECT_TRUE(waitUntil([&] { return captureScreen(x, overlay.card()) == picture; })) << what;
    }
    void expectAllFourWork();
};

void HotKeyTest::expectAllFourWork()
{
    const QImage first = overlay.steadyPicture();
    pressNextNote();
    EXPECT_TRUE(waitUntil([&] { return captureScreen(x, overlay.card()) != first; })) << "next";
    pressPreviousNote();
    expectShows(first, "previous");
    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); })) << "toggle, hides";
    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return overlay.isShown(); })) << "toggle, shows";
    EXPECT_EQ(probe.focusLosses(), 0);
    pressQuickOpen();
    EXPECT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); })) << "quick open";
}

TEST_P(HotKeyTest, press_otherWindowFocused_actsAndReachesNobodyElse)
{
    startProgram();
    expectAllFourWork();
    for (const auto code : {KeyCode::g, KeyCode::o, KeyCode::up, KeyCode::down})
        EXPECT_FALSE(probe.receivedKey(code)) << int{code};
}

TEST_P(HotKeyTest, press_locksOn_actsAllTheSame)
{
    const auto lock = [&](bool isCapsOn, bool isNumOn) {
        keyboard.setLock(KeyCode::capsLock, XCB_MOD_MASK_LOCK, isCapsOn);
        keyboard.setLock(KeyCode::numLock, XCB_MOD_MASK_2, isNumOn);
    };
    for (const auto& [isCapsOn, isNumOn] : {std::pair(true, false), {false, true}, {true, true}}) {
        SCOPED_TRACE(testing::Message() << "caps " << isCapsOn << ", num " << isNumOn);
        startProgram();
        lock(isCapsOn, isNumOn);
        expectAllFourWork();
        endProgram();
        EXPECT_TRUE(waitUntil([&] { return probe.hasFocus(); }));
        probe.clearRecord();
    }
    lock(false, false);
}

TEST_P(HotKeyTest, nextAndPrevious_pastTheEnds_wrapAround)
{
    startProgram();
    const QImage first = overlay.steadyPicture();
    pressNextNote();
    EXPECT_TRUE(waitUntil([&] { return captureScreen(x, overlay.card()) != first; }));
    const QImage second = overlay.steadyPicture();
    pressNextNote();
    EXPECT_TRUE(waitUntil([&] { return captureScreen(x, overlay.card()) != second; }));
    const QImage third = overlay.steadyPicture();
    EXPECT_NE(third, first);
    EXPECT_NE(third, second);
    pressNextNote();
    expectShows(first, "next of the last");
    pressPreviousNote();
    expectShows(third, "previous of the first");

    quickOpen();
    retype("last");
    expectSaved(2, QStringLiteral("last"));
}

TEST_P(HotKeyTest, start_keyOwnedByAnotherProgram_onlyThatActionHasNoKey)
{
    ProbeWindow owner(session.displayName(), {.isFullScreen = false});
    ASSERT_TRUE(owner.grabKey(KeyCode::o, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));
    startProgram();
    pressQuickOpen();
    EXPECT_TRUE(waitUntil([&] { return owner.receivedKey(KeyCode::o); }));
    EXPECT_TRUE(holdsFor([&] { return !overlay.hasKeyboard(); }, watchTime));

    const QImage first = overlay.steadyPicture();
    pressNextNote();
    EXPECT_TRUE(waitUntil([&] { return captureScreen(x, overlay.card()) != first; }));
    pressPreviousNote();
    expectShows(first, "previous");
    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
}

TEST_P(HotKeyTest, start_oneLockVariantOwned_leavesTheOtherVariantsFree)
{
    ProbeWindow owner(session.displayName(), {.isFullScreen = false});
    const uint16_t modifiers = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;
    ASSERT_TRUE(owner.grabKey(KeyCode::o, modifiers | XCB_MOD_MASK_LOCK));
    startProgram();
    ASSERT_TRUE(waitUntil([&] { return overlay.isShown(); }));
    EXPECT_TRUE(owner.grabKey(KeyCode::o, modifiers)) << "kept a part of a key it does not have";
}

TEST_P(HotKeyTest, press_keyHeldUntilItRepeats_actsOnce)
{
    runInSession({"xset", "r", "rate", "60", "50"});
    startProgram();
    keyboard.press(KeyCode::leftSuper);
    keyboard.press(KeyCode::leftShift);
    keyboard.press(KeyCode::g);
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    EXPECT_TRUE(holdsFor([&] { return !overlay.isShown(); }, watchTime));
    keyboard.release(KeyCode::g);
    keyboard.release(KeyCode::leftShift);
    keyboard.release(KeyCode::leftSuper);
    EXPECT_TRUE(holdsFor([&] { return !overlay.isShown(); }, Milliseconds(50)));
    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return overlay.isShown(); }));
}

TEST_P(HotKeyTest, changeLayout_whileRunning_keysStayAtTheirPlaces)
{
    startProgram();
    runInSession({"setxkbmap", "fr"});
    expectAllFourWork();
}

TEST_P(HotKeyTest, moveModifier_whileRunning_isFollowedBothWays)
{
    startProgram();
    ASSERT_TRUE(waitUntil([&] { return overlay.isShown(); }));
    runInSession({"xmodmap", "-e", "clear mod4", "-e", "clear mod3", "-e", "add mod3 = Super_L"});
    // Quick open may be pressed any number of times until the program has noticed.
    EXPECT_TRUE(waitUntil([&] {
        pressQuickOpen();
        return overlay.hasKeyboard();
    }));
    ProbeWindow other(session.displayName(), {.isFullScreen = false});
    const uint16_t before = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;
    EXPECT_TRUE(other.grabKey(KeyCode::g, before)) << "still holds the key's former modifier";

    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    runInSession({"setxkbmap", "us"});
    EXPECT_TRUE(waitUntil([&] {
        pressQuickOpen();
        return overlay.hasKeyboard();
    }));
}

TEST_P(HotKeyTest, terminate_whileHeldByIt_freesTheKeys)
{
    startProgram();
    ProbeWindow other(session.displayName(), {.isFullScreen = false});
    const uint16_t modifiers = XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT;
    EXPECT_FALSE(other.grabKey(KeyCode::g, modifiers));
    endProgram();
    EXPECT_TRUE(waitUntil([&] { return other.grabKey(KeyCode::g, modifiers); }));
}

INSTANTIATE_FOR_ALL_SETUPS(HotKeyTest);

} // namespace
} // namespace sablequill
