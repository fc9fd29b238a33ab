// SPDX-License-Identifier: MIT
#include "OnboardingSheet.h"

#include "AppFixture.h"
#include "OnboardingView.h"
#include "OverlayPanel.h"
#include "PanelCard.h"
#include "PushButton.h"
#include "Widgets.h"

#include <QTest>

namespace sablequill {
namespace {

class OnboardingSheetTest : public AppFixture {
protected:
    void start()
    {
        appState.bootstrap();
        clock.advance(1);
        turn();
    }

    FakePanel& guide() { return *panels.panel; }
    FakePanel& overlay()
    {
        return dynamic_cast<FakePanel&>(appState.windowManager->overlayPanel->panel());
    }
    Rect overTheOverlay()
    {
        const Rect owner = overlay().frame();
        return {owner.midX() - 240, owner.midY() - 210, 480, 420};
    }
    OnboardingView& view()
    {
        return found<OnboardingView>(
            dynamic_cast<PanelCard&>(*guide().content), QStringLiteral("onboardingView"));
    }

    OnboardingSheet sheet{appState, platform};
};

TEST_F(OnboardingSheetTest, update_noOverlayYet_isNotShown)
{
    appState.showOnboarding = true;
    turn();
    EXPECT_FALSE(sheet.isShown());
    EXPECT_EQ(panels.panelCount, 0);
}

TEST_F(OnboardingSheetTest, bootstrap_firstRun_isShownOverTheOverlayWithTheKeyboard)
{
    start();
    EXPECT_TRUE(sheet.isShown());
    EXPECT_TRUE(guide().isKey);
    EXPECT_EQ(guide().level, WindowLevel::floating);
    EXPECT_EQ(guide().frame(), overTheOverlay());
}

TEST_F(OnboardingSheetTest, bootstrap_overlayAtTheEdge_liesInsideTheScreen)
{
    appState.overlayManager->ensurePanelCreated(appState);
    panels.panel->move(1400, 860);
    start();
    EXPECT_EQ(guide().frame(), (Rect{1440 - 480, 900 - 420, 480, 420}));
}

TEST_F(OnboardingSheetTest, bootstrap_finishedBefore_isNotShown)
{
    appState.completeOnboarding();
    start();
    EXPECT_FALSE(sheet.isShown());
    EXPECT_EQ(panels.panelCount, 1);
}

TEST_F(OnboardingSheetTest, overlay_hiddenAndShown_takesTheGuideAlong)
{
    start();
    FakePanel& panel = guide();
    appState.overlayManager->hideOverlay();
    turn();
    EXPECT_FALSE(sheet.isShown());
    appState.overlayManager->showOverlay();
    turn();
    EXPECT_TRUE(sheet.isShown());
    EXPECT_EQ(&guide(), &panel);
    EXPECT_TRUE(appState.showOnboarding);
}

TEST_F(OnboardingSheetTest, overlay_movedOrResized_takesTheGuideAlong)
{
    start();
    overlay().move(300, 250);
    EXPECT_EQ(guide().frame(), overTheOverlay());
    overlay().resize(700, 360);
    EXPECT_EQ(guide().frame(), overTheOverlay());
    overlay().endLiveResize();
    EXPECT_EQ(guide().frame(), overTheOverlay());
}

TEST_F(OnboardingSheetTest, overlay_movedAfterTheGuideWas_keepsItBeside)
{
    start();
    guide().move(20, 30);
    const Rect before = overlay().frame();
    overlay().move(before.x + 70, before.y + 40);
    EXPECT_EQ(guide().frame(), (Rect{90, 70, 480, 420}));
}

TEST_F(OnboardingSheetTest, overlay_movedPastTheEdge_leavesTheGuideInsideTheScreen)
{
    start();
    overlay().move(1400, -200);
    EXPECT_EQ(guide().frame(), (Rect{1440 - 480, 0, 480, 420}));
}

TEST_F(OnboardingSheetTest, overlay_broughtBack_bringsTheGuideOverItsMiddle)
{
    start();
    guide().move(-470, -400);
    appState.overlayManager->showOverlay();
    turn();
    EXPECT_EQ(guide().frame(), (Rect{-470, -400, 480, 420})) << "it was not away";
    appState.overlayManager->hideOverlay();
    turn();
    overlay().move(300, 250);
    appState.overlayManager->showOverlay();
    turn();
    EXPECT_EQ(guide().frame(), overTheOverlay());
}

TEST_F(OnboardingSheetTest, overlay_movedWithoutAGuide_showsNone)
{
    start();
    appState.completeOnboarding();
    turn();
    overlay().move(300, 250);
    EXPECT_FALSE(sheet.isShown());
}

TEST_F(OnboardingSheetTest, overlay_hiddenBeforeTheGuideCame_waitsForIt)
{
    appState.bootstrap();
    appState.overlayManager->hideOverlay();
    turn();
    EXPECT_FALSE(sheet.isShown());
    appState.overlayManager->showOverlay();
    turn();
    EXPECT_TRUE(sheet.isShown());
}

TEST_F(OnboardingSheetTest, escape_always_hidesForThisRunAndRecordsNothing)
{
    start();
    QTest::keyClick(&view(), Qt::Key_Escape);
    turn();
    EXPECT_FALSE(sheet.isShown());
    EXPECT_FALSE(appState.showOnboarding);
    EXPECT_FALSE(savedSettings().hasCompletedOnboarding);
    appState.overlayManager->toggleOverlay();
    appState.overlayManager->toggleOverlay();
    turn();
    EXPECT_FALSE(sheet.isShown());
}

TEST_F(OnboardingSheetTest, getStarted_click_recordsAndCloses)
{
    start();
    view().setCurrentPage(2);
    found<PushButton>(view(), QStringLiteral("Get Started")).click();
    turn();
    EXPECT_FALSE(sheet.isShown());
    EXPECT_TRUE(savedSettings().hasCompletedOnboarding);
}

TEST_F(OnboardingSheetTest, presentation_each_beginsAtTheFirstPage)
{
    start();
    view().setCurrentPage(2);
    appState.showOnboarding = false;
    turn();
    EXPECT_FALSE(sheet.isShown());
    appState.showOnboarding = true;
    turn();
    EXPECT_TRUE(sheet.isShown());
    EXPECT_EQ(view().currentPage(), 0);
}

TEST_F(OnboardingSheetTest, present_noScreen_liesOverTheOverlay)
{
    screens.visibleFrame.reset();
    start();
    EXPECT_TRUE(sheet.isShown());
}

} // namespace
} // namespace sablequill
