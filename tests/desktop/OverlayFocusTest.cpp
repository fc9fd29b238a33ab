// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

namespace sablequill {
namespace {

class OverlayFocusTest : public OverlayTest {
protected:
    void expectProbeHasKeyboard()
    {
        EXPECT_TRUE(waitUntil([&] { return probe.hasFocus(); }));
        EXPECT_TRUE(holdsFor([&] { return probe.hasFocus(); }, watchTime));
        probe.clearRecord();
        keyboard.tap(KeyCode::space);
        EXPECT_TRUE(waitUntil([&] { return probe.receivedKey(KeyCode::space); }));
    }
};

TEST_P(OverlayFocusTest, click_onCard_takesKeyboard)
{
    startProgram();
    mouse.click(overlay.contentBackground());
    EXPECT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    EXPECT_TRUE(holdsFor([&] { return overlay.hasKeyboard(); }, watchTime));

    probe.clearRecord();
    keyboard.tap(KeyCode::space);
    EXPECT_TRUE(holdsFor([&] { return !probe.receivedKey(KeyCode::space); }, watchTime));
}

TEST_P(OverlayFocusTest, quickOpen_otherWindowFocused_takesKeyboardIntoEditor)
{
    startProgram();
    pressQuickOpen();
    EXPECT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    probe.clearRecord();
    retype("typed");
    expectSaved(0, QStringLiteral("typed"));
    EXPECT_TRUE(probe.pressedKeys().empty());
}

TEST_P(OverlayFocusTest, quickOpen_hidden_showsAndTakesKeyboard)
{
    startProgram();
    pressToggle();
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    pressQuickOpen();
    EXPECT_TRUE(waitUntil([&] { return overlay.isShown() && overlay.hasKeyboard(); }));
    retype("typed");
    expectSaved(0, QStringLiteral("typed"));
}

TEST_P(OverlayFocusTest, toggle_overlayHasKeyboard_givesItBack)
{
    startProgram();
    quickOpen();
    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    expectProbeHasKeyboard();
}

TEST_P(OverlayFocusTest, hideButton_overlayHasKeyboard_givesItBack)
{
    startProgram();
    mouse.click(overlay.contentBackground());
    ASSERT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    mouse.click(overlay.hideButton());
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    expectProbeHasKeyboard();
}

TEST_P(OverlayFocusTest, clickElsewhere_overlayHasKeyboard_givesItBack)
{
    startProgram();
    quickOpen();
    mouse.click({900, 700});
    expectProbeHasKeyboard();
    EXPECT_TRUE(overlay.isShown());

    // And again by a click: the editor is still open.
    mouse.click(overlay.contentBackground());
    ASSERT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    retype("again");
    expectSaved(0, QStringLiteral("again"));
}

TEST_P(OverlayFocusTest, terminate_overlayHasKeyboard_givesItBack)
{
    startProgram();
    quickOpen();
    endProgram();
    expectProbeHasKeyboard();
}

INSTANTIATE_FOR_ALL_SETUPS(OverlayFocusTest);

} // namespace
} // namespace sablequill
