// SPDX-License-Identifier: MIT
#include "SettingsWindow.h"

#include "Appearance.h"

namespace sablequill {
namespace {

const QString tabNames[] = {QStringLiteral("General"), QStringLiteral("Notes"),
    QStringLiteral("Shortcuts"), QStringLiteral("About")};

class WindowTest : public SettingsWindowTest {
protected:
    /// Waits for one tab to be the chosen one, and for its content alone to be there.
    void expectTab(int chosen) const
    {
        const auto isChosen = [&](const QString& name) {
            const auto tab = named(name, Role::tab);
            return tab && tab->is(AccessibleState::checked);
        };
        EXPECT_TRUE(waitUntil([&] { return isChosen(tabNames[chosen]); })) << "tab " << chosen;
        const bool contents[] = {isShown(QStringLiteral("Opacity"), Role::slider),
            isShown(QStringLiteral("Your Notes"), Role::label),
            isShown(QStringLiteral("Reset to Defaults"), Role::button),
            isShown(QStringLiteral("Floating teleprompter for creators.\n"
                                   "Keep your notes visible while presenting."),
                Role::label)};
        for (int tab = 0; tab < 4; ++tab) {
            EXPECT_EQ(isChosen(tabNames[tab]), tab == chosen) << "tab " << tab;
            EXPECT_EQ(contents[tab], tab == chosen) << "content of tab " << tab;
        }
    }
};

TEST_P(WindowTest, settingsItem_clicked_opensAWindowOfThatSize)
{
    openByMouse();
    ASSERT_EQ(managedWindows().size(), 1U);
    const auto area = areaOf(x, managedWindows().front());
    ASSERT_TRUE(area);
    EXPECT_EQ(area->width, 520);
    EXPECT_EQ(area->height, 420);
    EXPECT_TRUE(isAbove(x, managedWindows().front(), probe.window()));
    expectGone(QStringLiteral("Settings…"), Role::button);
    int right = 0;
    for (const auto& name : tabNames) {
        const Area tab = place(name, Role::tab);
        EXPECT_GE(tab.x, right) << name.toStdString();
        right = tab.right();
    }
    expectTab(0);
    endProgram();
}

TEST_P(WindowTest, settingsItem_windowIsOpen_comesForwardAndStaysTheOnlyOne)
{
    openByMouse();
    const auto window = managedWindows().at(0);
    click(tabNames[2], Role::tab);
    expectTab(2);
    probe.raise();
    probe.activate();
    ASSERT_TRUE(waitUntil([&] { return probe.hasFocus(); }));
    ASSERT_TRUE(waitUntil([&] { return isAbove(x, probe.window(), window); }));

    openByKeyboard();
    EXPECT_TRUE(waitUntil([&] { return isAbove(x, window, probe.window()); }));
    EXPECT_EQ(managedWindows(), std::vector{window});
    expectTab(2);
    endProgram();
}

TEST_P(WindowTest, close_byItsWindowManager_programGoesOnAndTheWindowComesBack)
{
    openByMouse();
    click(tabNames[1], Role::tab);
    expectTab(1);
    x.sendToRoot(managedWindows().at(0), "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME, 2});
    ASSERT_TRUE(waitUntil([&] { return managedWindows().empty(); }));
    EXPECT_TRUE(overlay.isShown());
    openByKeyboard();
    EXPECT_EQ(managedWindows().size(), 1U);
    endProgram();
}

TEST_P(WindowTest, tabs_clicked_showTheirContents)
{
    openByMouse();
    for (const int tab : {1, 2, 3, 0}) {
        click(tabNames[tab], Role::tab);
        expectTab(tab);
    }
    endProgram();
}

TEST_P(WindowTest, tabs_byKeys_goRoundAndBack)
{
    openByMouse();
    for (const int tab : {1, 2, 3, 0}) {
        keyboard.chord({KeyCode::leftControl}, KeyCode::pageDown);
        expectTab(tab);
    }
    keyboard.chord({KeyCode::leftControl}, KeyCode::pageUp);
    expectTab(3);
    // With the keyboard in the row of tabs its arrow keys go through them.
    keyboard.chord({KeyCode::leftControl}, KeyCode::pageDown);
    expectTab(0);
    tabTo(tabNames[0]);
    keyboard.tap(KeyCode::right);
    expectTab(1);
    keyboard.tap(KeyCode::left);
    expectTab(0);
    endProgram();
}

TEST_P(WindowTest, colorScheme_changesWhileOpen_windowFollows)
{
    openByMouse();
    const Area area = place(QStringLiteral("Sablequill Settings"), Role::window);
    const Point ground{area.x + 6, area.bottom() - 6};
    const auto lightness = [&] { return colorAt(x, ground).lightness(); };
    ASSERT_TRUE(waitUntil([&] { return lightness() > 200; }));
    Appearance desktop(session.environment(user).at("DBUS_SESSION_BUS_ADDRESS"));
    desktop.prefer(Appearance::dark);
    EXPECT_TRUE(runUntil([&] { return lightness() < 80; }));
    desktop.prefer(Appearance::light);
    EXPECT_TRUE(runUntil([&] { return lightness() > 200; }));
    endProgram();
}

INSTANTIATE_FOR_ALL_SETUPS(WindowTest);

} // namespace
} // namespace sablequill
