// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

#include <algorithm>

namespace sablequill {
namespace {

class OverlayStackingTest : public OverlayTest {
protected:
    /// Above in the server's order, and in what the screen shows.
    bool isSeenAbove(const ProbeWindow& other) const
    {
        return overlay.isShown() && overlay.isAbove(other.window())
            && colorAt(x, overlay.contentBackground()).lightness() < 140;
    }
    void expectStaysAbove(const ProbeWindow& other) const
    {
        EXPECT_TRUE(waitUntil([&] { return isSeenAbove(other); }));
        EXPECT_TRUE(holdsFor([&] { return overlay.isAbove(other.window()); }, watchTime));
        EXPECT_TRUE(isSeenAbove(other));
    }
};

TEST_P(OverlayStackingTest, start_fullScreenWindowFocused_isAboveItWithoutItsKeyboard)
{
    startProgram();
    expectStaysAbove(probe);

    keyboard.tap(KeyCode::a);
    EXPECT_TRUE(waitUntil([&] { return probe.receivedKey(KeyCode::a); }));
    EXPECT_TRUE(probe.hasFocus());
    EXPECT_EQ(probe.focusLosses(), 0);
    EXPECT_EQ(overlay.card(), savedCard);
}

TEST_P(OverlayStackingTest, toggle_hiddenAndShown_isAboveWithoutTakingKeyboard)
{
    startProgram();
    pressToggle();
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    pressToggle();
    expectStaysAbove(probe);
    EXPECT_TRUE(probe.hasFocus());
    EXPECT_EQ(probe.focusLosses(), 0);
}

TEST_P(OverlayStackingTest, raise_fullScreenWindow_staysAbove)
{
    startProgram();
    expectStaysAbove(probe);
    probe.raise();
    expectStaysAbove(probe);
}

TEST_P(OverlayStackingTest, hover_onAButton_showsItsTooltipAboveThePanel)
{
    startProgram();
    mouse.moveTo(overlay.headerBackground());
    mouse.moveTo(overlay.editButton());
    const uint32_t tooltip = x.atom("_NET_WM_WINDOW_TYPE_TOOLTIP");
    const auto isTooltipAbove = [&](xcb_window_t window) {
        const auto types = x.property(window, "_NET_WM_WINDOW_TYPE");
        return std::find(types.begin(), types.end(), tooltip) != types.end()
            && isViewable(x, window) && isAbove(x, window, *overlay.window());
    };
    const auto isShown = [&] {
        const auto windows = stackingOrder(x);
        return std::any_of(windows.begin(), windows.end(), isTooltipAbove);
    };
    EXPECT_TRUE(waitUntil(isShown));
    EXPECT_TRUE(holdsFor(isShown, watchTime));
    EXPECT_TRUE(probe.hasFocus());
}

TEST_P(OverlayStackingTest, click_fullScreenWindow_staysAbove)
{
    startProgram();
    expectStaysAbove(probe);
    mouse.click({900, 700});
    EXPECT_TRUE(waitUntil([&] { return probe.buttonPresses() == 1; }));
    expectStaysAbove(probe);
    EXPECT_TRUE(probe.hasFocus());
}

TEST_P(OverlayStackingTest, open_anotherFullScreenWindow_isAboveThatToo)
{
    startProgram();
    expectStaysAbove(probe);
    ProbeWindow later(session.displayName(), {.color = background});
    later.show();
    expectStaysAbove(later);
    EXPECT_TRUE(later.hasFocus());
}

TEST_P(OverlayStackingTest, click_besideCard_reachesWindowBelow)
{
    startProgram();
    const Area card = overlay.card();
    int expected = 0;
    // One at a time: the window manager passes each click on.
    for (const Point beside : {Point{card.x - 2, card.center().y}, {card.center().x, card.y - 2},
             {card.right() + 1, card.center().y}, {card.center().x, card.bottom() + 1}}) {
        mouse.click(beside);
        ++expected;
        EXPECT_TRUE(waitUntil([&] { return probe.buttonPresses() == expected; }))
            << "click at " << beside;
    }
}

TEST_P(OverlayStackingTest, switchWorkspace_another_isOnItAndTakesKeys)
{
    if (!traits(GetParam()).isManaged)
        return; // there is only one
    startProgram();
    expectStaysAbove(probe);
    session.windowManager().switchToWorkspace(1);
    EXPECT_TRUE(holdsFor([&] { return overlay.isShown(); }, watchTime));
    ProbeWindow other(session.displayName(), {.color = background});
    other.show();
    expectStaysAbove(other);
    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    session.windowManager().switchToWorkspace(0);
}

INSTANTIATE_FOR_ALL_SETUPS(OverlayStackingTest);

} // namespace
} // namespace sablequill
