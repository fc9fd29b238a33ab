// SPDX-License-Identifier: MIT
#include "SettingsView.h"

#include "Accessibility.h"
#include "AppFixture.h"
#include "StepSlider.h"
#include "TabButton.h"
#include "Widgets.h"

#include <QTest>

namespace sablequill {
namespace {

const QStringList tabs{QStringLiteral("General"), QStringLiteral("Notes"),
    QStringLiteral("Shortcuts"), QStringLiteral("About")};

class SettingsViewTest : public AppFixture {
protected:
    SettingsViewTest()
    {
        present(view);
        view.activateWindow();
    }

    TabButton& head(int tab) { return found<TabButton>(view, tabs[tab] + QStringLiteral("Tab")); }
    QWidget& content(int tab) { return found(view, tabs[tab]); }
    void click(int tab) { QTest::mouseClick(&head(tab), Qt::LeftButton); }

    /// The one tab whose content and head are shown; -1 when they differ.
    int shownTab()
    {
        int shown = -1;
        for (int tab = 0; tab < 4; ++tab) {
            if (content(tab).isVisible() != head(tab).isChecked())
                return -1;
            if (content(tab).isVisible())
                shown = tab;
        }
        return shown;
    }

    SettingsView view{appState};
    SettingsRootView& root = *view.findChild<SettingsRootView*>();
};

TEST_F(SettingsViewTest, size_always_is520By420)
{
    EXPECT_EQ(root.size(), QSize(520, 420));
    EXPECT_EQ(view.size(), QSize(520, 420));
    for (int tab = 0; tab < 4; ++tab) {
        click(tab);
        turn();
        EXPECT_EQ(view.size(), QSize(520, 420));
        EXPECT_LE(content(tab).minimumSizeHint().height(), content(tab).height()) << tab;
    }
}

TEST_F(SettingsViewTest, tabs_firstShown_areFourInOrderOnTheFirst)
{
    EXPECT_EQ(textsIn(view).mid(0, 4), tabs);
    EXPECT_EQ(shownTab(), 0);
}

TEST_F(SettingsViewTest, tabs_click_showTheirContent)
{
    for (const int tab : {1, 2, 3, 0}) {
        click(tab);
        EXPECT_EQ(shownTab(), tab);
    }
}

TEST_F(SettingsViewTest, tabs_clickOnTheShownOne_staysShown)
{
    click(2);
    click(2);
    EXPECT_EQ(shownTab(), 2);
}

TEST_F(SettingsViewTest, tabs_keys_moveAndOpenThem)
{
    leaveControls(view);
    QWidget* first = focusAfterTab(view);
    EXPECT_EQ(first, &head(0));
    QTest::keyClick(first, Qt::Key_Right);
    EXPECT_EQ(shownTab(), 1);
    EXPECT_EQ(view.focusWidget(), &head(1));
    QTest::keyClick(view.focusWidget(), Qt::Key_Left);
    EXPECT_EQ(shownTab(), 0);
}

TEST_F(SettingsViewTest, tabKey_fromTheHead_entersTheContent)
{
    leaveControls(view);
    EXPECT_EQ(focusAfterTab(view, 2), &found(view, QStringLiteral("opacity")));
    click(2);
    head(2).setFocus();
    EXPECT_EQ(accessibleName(*focusAfterTab(view)), QStringLiteral("Reset to Defaults"));
}

TEST_F(SettingsViewTest, controlPageKeys_anywhere_goRoundTheTabs)
{
    leaveControls(view);
    focusAfterTab(view, 2);
    for (const int tab : {1, 2, 3, 0}) {
        QTest::keyClick(
            view.focusWidget() ? view.focusWidget() : &root, Qt::Key_PageDown, Qt::ControlModifier);
        EXPECT_EQ(shownTab(), tab);
    }
    QTest::keyClick(
        view.focusWidget() ? view.focusWidget() : &root, Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(shownTab(), 3);
    EXPECT_EQ(appState.settingsViewModel->opacity, 0.92);
}

TEST_F(SettingsViewTest, tabs_switched_keepAllEdits)
{
    auto& opacity = found<StepSlider>(view, QStringLiteral("opacity"));
    opacity.setValue(50);
    click(1);
    click(0);
    EXPECT_EQ(opacity.value(), 50);
    EXPECT_EQ(savedSettings().opacity, 0.5);
}

TEST_F(SettingsViewTest, construct_again_showsTheViewModelsValues)
{
    found<StepSlider>(view, QStringLiteral("fontSize")).setValue(20);
    const SettingsView another(appState);
    EXPECT_EQ(found<StepSlider>(another, QStringLiteral("fontSize")).value(), 20);
}

TEST_F(SettingsViewTest, accessible_tabs_areNamedAndCanBePressed)
{
    for (int tab = 0; tab < 4; ++tab)
        EXPECT_EQ(accessibleName(head(tab)), tabs[tab]);
    EXPECT_TRUE(accessible(head(0)).state().checked);
    pressAccessibly(head(3));
    EXPECT_TRUE(waitFor([&] { return shownTab() == 3; }));
}

} // namespace
} // namespace sablequill
