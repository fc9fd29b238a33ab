// SPDX-License-Identifier: MIT
#include "MenuBarExtra.h"

#include "AppFixture.h"
#include "FakeStatusItem.h"
#include "MenuBarView.h"
#include "PanelCard.h"
#include "PlainButton.h"
#include "Widgets.h"
#include "WindowPlacement.h"

#include <QTest>

namespace sablequill {
namespace {

const Rect icon{1300, 876, 24, 24};

class MenuBarExtraTest : public AppFixture {
protected:
    MenuBarExtraTest() { journal.take(); }

    PanelCard& card() { return dynamic_cast<PanelCard&>(*popover().content); }
    MenuBarView& view() { return found<MenuBarView>(card(), QStringLiteral("menuBarView")); }

    /// Where a popover of the content's size stands at an anchor.
    Rect placeAt(const StatusItemAnchor& anchor)
    {
        const QSize size = card().contentSize();
        return WindowPlacement::popover(
            size.width(), size.height(), anchor, {screens.frame, *screens.visibleFrame});
    }

    /// As long after the start as everything takes to be there.
    void launch()
    {
        extra.launch();
        clock.advance(0.1);
    }
    FakePanel& popover() { return *panels.byRole.at(QStringLiteral("popover")); }

    FakeStatusItem statusItem{journal};
    MenuBarExtra extra{appState, platform, statusItem};
};

TEST_F(MenuBarExtraTest, construct_always_makesNothingYet)
{
    EXPECT_FALSE(extra.isOpen());
    EXPECT_EQ(panels.panelCount, 0);
}

TEST_F(MenuBarExtraTest, launch_always_showsTheOverlayFirst)
{
    extra.launch();
    EXPECT_TRUE(appState.windowManager->isOverlayVisible());
    EXPECT_EQ(panels.panelCount, 1);
    EXPECT_EQ(callsOf("statusItem.show(Sablequill)"), 0);
    clock.advance(0.1);
    EXPECT_TRUE(extra.isOpen());
    EXPECT_EQ(panels.panelCount, 2);
    EXPECT_EQ(callsOf("statusItem.show(Sablequill)"), 1);
}

TEST_F(MenuBarExtraTest, launch_always_showsThePopoverWithoutTheKeyboard)
{
    launch();
    EXPECT_TRUE(extra.isOpen());
    EXPECT_FALSE(popover().isKey);
    EXPECT_TRUE(popover().description.canBecomeKey);
    EXPECT_EQ(popover().description.styleMask, StyleMask::nonactivatingPanel);
    EXPECT_EQ(popover().level, WindowLevel::floating);
}

TEST_F(MenuBarExtraTest, launch_openedAtOnce_isNotShownAgain)
{
    extra.launch();
    extra.open();
    extra.close();
    clock.advance(0.1);
    EXPECT_FALSE(extra.isOpen());
    EXPECT_EQ(panels.panelCount, 2);
    EXPECT_EQ(callsOf("statusItem.show(Sablequill)"), 1);
}

TEST_F(MenuBarExtraTest, launch_quickOpenedAtOnce_isNotShown)
{
    extra.launch();
    appState.overlayManager->quickOpen();
    clock.advance(0.1);
    EXPECT_FALSE(extra.isOpen());
    EXPECT_EQ(callsOf("statusItem.show(Sablequill)"), 1);
}

TEST_F(MenuBarExtraTest, launch_statusItem_hasTheTitleAndTheEntries)
{
    launch();
    EXPECT_EQ(callsOf("statusItem.show(Sablequill)"), 1);
    EXPECT_FALSE(statusItem.shown.icon.isNull());
    QStringList titles;
    for (const StatusMenuEntry& entry : statusItem.shown.menu)
        titles.append(entry.title);
    EXPECT_EQ(titles,
        QStringList({QStringLiteral("Show Overlay"), QStringLiteral("Toggle Overlay"),
            QStringLiteral("New Note"), QStringLiteral("Settings…"),
            QStringLiteral("Quit Sablequill")}));
}

TEST_F(MenuBarExtraTest, menuEntries_settingsAndQuit_reachTheApplication)
{
    launch();
    journal.take();
    statusItem.shown.menu[3].action();
    statusItem.shown.menu[4].action();
    EXPECT_EQ(journal.take(),
        (std::vector<std::string>{"application.showSettingsWindow()", "application.terminate()"}));
}

TEST_F(MenuBarExtraTest, launch_iconDocksLate_popoverMovesToIt)
{
    launch();
    EXPECT_EQ(popover().frame(), placeAt({}));
    statusItem.place = icon;
    clock.advance(0.6);
    EXPECT_EQ(popover().frame(), placeAt(icon));
    EXPECT_NE(popover().frame(), placeAt({}));
}

TEST_F(MenuBarExtraTest, launch_openedElsewhereBeforeTheIconDocks_staysThere)
{
    launch();
    extra.close();
    const Rect press{200, 880, 0, 0};
    statusItem.activate(press);
    statusItem.place = icon;
    clock.advance(0.6);
    EXPECT_EQ(popover().frame(), placeAt(press));
}

TEST_F(MenuBarExtraTest, launch_closedBeforeTheIconDocks_staysClosed)
{
    launch();
    extra.close();
    clock.advance(0.6);
    EXPECT_FALSE(extra.isOpen());
}

TEST_F(MenuBarExtraTest, activate_closed_opensAtTheAnchorWithTheKeyboard)
{
    launch();
    extra.close();
    statusItem.activate(icon);
    EXPECT_TRUE(extra.isOpen());
    EXPECT_TRUE(popover().isKey);
    EXPECT_EQ(popover().frame(), placeAt(icon));
    EXPECT_EQ(popover().frame().width, 280);
}

TEST_F(MenuBarExtraTest, activate_open_closes)
{
    launch();
    statusItem.activate(icon);
    EXPECT_FALSE(extra.isOpen());
    statusItem.activate(icon);
    EXPECT_TRUE(extra.isOpen());
}

TEST_F(MenuBarExtraTest, activate_rightAfterItsPressDismissed_staysClosed)
{
    launch();
    popover().loseAttention();
    EXPECT_FALSE(extra.isOpen());
    statusItem.activate(icon);
    EXPECT_FALSE(extra.isOpen());
    clock.advance(0.35);
    statusItem.activate(icon);
    EXPECT_TRUE(extra.isOpen());
}

TEST_F(MenuBarExtraTest, activate_rightAfterTheSecondOfTwoDismissals_staysClosed)
{
    launch();
    popover().loseAttention();
    clock.advance(0.2);
    extra.open();
    popover().loseAttention();
    clock.advance(0.2);
    statusItem.activate(icon);
    EXPECT_FALSE(extra.isOpen());
    clock.advance(0.15);
    statusItem.activate(icon);
    EXPECT_TRUE(extra.isOpen());
}

TEST_F(MenuBarExtraTest, loseAttention_open_closes)
{
    extra.open();
    popover().loseAttention();
    EXPECT_FALSE(extra.isOpen());
    EXPECT_FALSE(popover().isKey);
}

TEST_F(MenuBarExtraTest, open_always_isAtTheIconWithTheKeyboard)
{
    statusItem.place = icon;
    extra.open();
    EXPECT_TRUE(popover().isKey);
    EXPECT_EQ(popover().frame(), placeAt(icon));
    EXPECT_TRUE(appState.windowManager->isOverlayVisible());
}

TEST_F(MenuBarExtraTest, open_again_bootstrapsOnce)
{
    extra.open();
    appState.overlayManager->hideOverlay();
    clock.advance(1);
    extra.open();
    EXPECT_EQ(panels.panelCount, 2);
    EXPECT_FALSE(appState.windowManager->isOverlayVisible());
}

TEST_F(MenuBarExtraTest, open_eachTime_showsTheStoredMirkMode)
{
    extra.open();
    const auto& mirk = found(card(), QStringLiteral("mirkIndicator"));
    EXPECT_TRUE(mirk.isVisibleTo(&card()));
    appState.settingsViewModel->mirkModeEnabled = false;
    appState.settingsViewModel->persist();
    extra.open();
    EXPECT_FALSE(mirk.isVisibleTo(&card()));
}

TEST_F(MenuBarExtraTest, escape_open_closes)
{
    extra.open();
    QTest::keyClick(&view(), Qt::Key_Escape);
    EXPECT_FALSE(extra.isOpen());
}

TEST_F(MenuBarExtraTest, entry_pressed_leavesItOpen)
{
    extra.open();
    found<PlainButton>(card(), QStringLiteral("Show Overlay")).click();
    EXPECT_TRUE(extra.isOpen());
}

TEST_F(MenuBarExtraTest, notes_moreWhileOpen_popoverGrowsAtItsPlace)
{
    statusItem.place = icon;
    extra.open();
    const double before = popover().frame().height;
    makeNotes(4);
    turn();
    EXPECT_GT(popover().frame().height, before);
    EXPECT_EQ(popover().frame(), placeAt(icon));
}

TEST_F(MenuBarExtraTest, notes_moreWhileClosed_movesNothing)
{
    launch();
    extra.close();
    const Rect before = popover().frame();
    makeNotes(4);
    turn();
    EXPECT_EQ(popover().frame(), before);
    extra.open();
    EXPECT_GT(popover().frame().height, before.height);
}

TEST_F(MenuBarExtraTest, open_noScreen_stillOpens)
{
    screens.visibleFrame.reset();
    extra.open();
    EXPECT_TRUE(extra.isOpen());
}

} // namespace
} // namespace sablequill
