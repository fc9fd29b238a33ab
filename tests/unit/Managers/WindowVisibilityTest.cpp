// SPDX-License-Identifier: MIT
#include "WindowManagerFixture.h"

namespace sablequill {
namespace {

const Lines shownInMirkMode =
    Lines{fadeIn, "panel.orderFrontRegardless()"} + mirked + Lines{"mainQueue.after(0.1)"};

/// Showing, hiding and toggling a panel.
class WindowVisibilityTest : public WindowManagerFixture {
protected:
    /// Shown for long enough that nothing is under way.
    void createShownPanel()
    {
        createPanel();
        manager->showOverlay();
        clock.advance(1);
        journal.take();
    }
};

TEST_F(WindowVisibilityTest, everyOperation_noPanel_doesNothing)
{
    manager->showOverlay();
    manager->hideOverlay();
    manager->toggleOverlay();
    clock.advance(1);

    EXPECT_FALSE(manager->isOverlayVisible());
    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_EQ(panels.panelCount, 0);
}

TEST_F(WindowVisibilityTest, showOverlay_mirkModeOn_wholeSequenceAndOneMorePass)
{
    createPanel();

    manager->showOverlay();

    EXPECT_EQ(journal.take(), shownInMirkMode);
    EXPECT_TRUE(manager->isOverlayVisible());
    EXPECT_FALSE(panel().isKey);
    clock.advance(0.099);
    EXPECT_EQ(journal.take(), Lines{});
    clock.advance(0.001);
    EXPECT_EQ(journal.take(), excluded);
    clock.advance(1);
    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(WindowVisibilityTest, showOverlay_mirkModeOff_mirkModeIsNotTouched)
{
    apply(withoutMirkMode());
    createPanel();

    manager->showOverlay();
    clock.advance(1);

    EXPECT_EQ(journal.take(), (Lines{fadeIn, "panel.orderFrontRegardless()"}));
    EXPECT_EQ(panel().collectionBehavior, 0U);
}

TEST_F(WindowVisibilityTest, showOverlay_firstTime_opaqueFromTheStart)
{
    createPanel();

    manager->showOverlay();

    EXPECT_EQ(panel().alpha(), 0.92);
    clock.advance(0.11);
    EXPECT_EQ(panel().alpha(), 0.92);
}

TEST_F(WindowVisibilityTest, showOverlay_again_runsTheWholeSequenceAgain)
{
    createShownPanel();

    manager->showOverlay();

    EXPECT_EQ(journal.take(), shownInMirkMode);
}

TEST_F(WindowVisibilityTest, showOverlay_hiddenBeforeTheSecondPass_noSecondPass)
{
    createPanel();
    manager->showOverlay();
    panel().orderOut();
    journal.take();

    clock.advance(0.1);

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(WindowVisibilityTest, showOverlay_fadingOutAtTheSecondPass_excludesStill)
{
    createPanel();
    manager->showOverlay();
    manager->hideOverlay();
    journal.take();

    clock.advance(0.1);

    EXPECT_EQ(journal.take(), excluded);
}

TEST_F(WindowVisibilityTest, showOverlay_mirkModeOffBeforeTheSecondPass_noSecondPass)
{
    createPanel();
    manager->showOverlay();
    apply(withoutMirkMode());

    clock.advance(0.1);

    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_EQ(panel().sharingType, SharingType::readOnly);
}

TEST_F(WindowVisibilityTest, showOverlay_panelGoneBeforeTheSecondPass_noSecondPass)
{
    createPanel();
    manager->showOverlay();
    manager->overlayPanel.reset();
    journal.take();

    clock.advance(0.1);

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(WindowVisibilityTest, showOverlay_managerGoneBeforeTheSecondPass_noSecondPass)
{
    createPanel();
    manager->showOverlay();
    manager.reset();
    journal.take();

    clock.advance(0.1);

    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_FALSE(clock.hasWork());
}

TEST_F(WindowVisibilityTest, hideOverlay_shown_fadesThenRestoresThenOrdersOut)
{
    createShownPanel();

    manager->hideOverlay();
    EXPECT_EQ(journal.take(), Lines{fadeOut});
    clock.advance(0.11);
    EXPECT_DOUBLE_EQ(panel().alpha(), 0.46);
    EXPECT_TRUE(manager->isOverlayVisible());
    clock.advance(0.10999);
    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_NEAR(panel().alpha(), 0, 1e-6);
    clock.advance(0.00001);

    EXPECT_EQ(journal.take(), (Lines{"panel.setAlpha(0.92)", "panel.orderOut()"}));
    EXPECT_FALSE(manager->isOverlayVisible());
    EXPECT_EQ(panel().alpha(), 0.92);
}

TEST_F(WindowVisibilityTest, hideOverlay_opacityChangedWhileFading_restoresTheNewOpacity)
{
    createShownPanel();
    manager->hideOverlay();
    clock.advance(0.1);
    AppSettings settings;
    settings.opacity = 0.5;
    apply(settings);

    clock.advance(0.12);

    EXPECT_EQ(journal.take(), (Lines{"panel.setAlpha(0.5)", "panel.orderOut()"}));
}

TEST_F(WindowVisibilityTest, showOverlay_afterHide_thereAtOnceWithoutFade)
{
    createShownPanel();
    manager->hideOverlay();
    clock.advance(0.22);
    journal.take();

    manager->showOverlay();

    EXPECT_EQ(journal.take(), shownInMirkMode);
    EXPECT_EQ(panel().alpha(), 0.92);
    EXPECT_TRUE(manager->isOverlayVisible());
}

TEST_F(WindowVisibilityTest, showOverlay_whileHiding_endsOnScreen)
{
    createShownPanel();
    manager->hideOverlay();
    clock.advance(0.1);
    journal.take();

    manager->showOverlay();

    const Lines lines = journal.take();
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 4),
        (Lines{
            fadeIn, "panel.setAlpha(0.92)", "panel.orderOut()", "panel.orderFrontRegardless()"}));
    clock.advance(1);
    EXPECT_TRUE(manager->isOverlayVisible());
    EXPECT_EQ(panel().alpha(), 0.92);
}

TEST_F(WindowVisibilityTest, hideOverlay_rightAfterShow_endsOffScreen)
{
    createPanel();
    manager->showOverlay();
    manager->hideOverlay();

    clock.advance(1);

    EXPECT_FALSE(manager->isOverlayVisible());
    EXPECT_EQ(panel().alpha(), 0.92);
}

TEST_F(WindowVisibilityTest, toggleOverlay_hidden_shows)
{
    createPanel();

    manager->toggleOverlay();

    EXPECT_EQ(journal.take(), shownInMirkMode);
}

TEST_F(WindowVisibilityTest, toggleOverlay_visible_hides)
{
    createShownPanel();

    manager->toggleOverlay();

    EXPECT_EQ(journal.take(), Lines{fadeOut});
}

TEST_F(WindowVisibilityTest, toggleOverlay_fadingOut_stillVisibleSoHidesAgain)
{
    createShownPanel();
    manager->toggleOverlay();
    clock.advance(0.1);

    manager->toggleOverlay();
    clock.advance(1);

    EXPECT_EQ(journal.take(),
        (Lines{fadeOut, fadeOut, "panel.setAlpha(0.92)", "panel.orderOut()", "panel.setAlpha(0.92)",
            "panel.orderOut()"}));
    EXPECT_FALSE(manager->isOverlayVisible());
}

} // namespace
} // namespace sablequill
