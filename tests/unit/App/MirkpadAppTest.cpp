// SPDX-License-Identifier: MIT
#include "MirkpadApp.h"

#include "ColorScheme.h"
#include "FakeStatusItem.h"
#include "Ink.h"
#include "MirkDescription.h"
#include "OverlayView.h"
#include "PlatformFixture.h"
#include "SettingsView.h"
#include "Widgets.h"

#include <QApplication>
#include <QToolTip>

namespace sablequill {
namespace {

class MirkpadAppTest : public PlatformFixture {
protected:
    ~MirkpadAppTest() override
    {
        QApplication::setPalette(oldPalette);
        QApplication::setQuitOnLastWindowClosed(true);
    }

    static QList<SettingsView*> settingsWindows()
    {
        QList<SettingsView*> windows;
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* window = dynamic_cast<SettingsView*>(widget))
                windows.append(window);
        return windows;
    }

    static QColor ground() { return QApplication::palette().color(QPalette::Window); }
    static QColor ground(Surroundings surroundings)
    {
        return paletteFor(surroundings).color(QPalette::Window);
    }

    const QPalette oldPalette = QApplication::palette();
    FakeStatusItem statusItem{journal};
    ColorScheme colorScheme;
    MirkpadApp app{platform, statusItem, colorScheme};
};

TEST_F(MirkpadAppTest, construct_always_noWindowIsMade)
{
    EXPECT_EQ(panels.panelCount, 0);
    EXPECT_TRUE(settingsWindows().isEmpty());
}

TEST_F(MirkpadAppTest, launch_firstRun_popoverOverlayAndGuideAreThere)
{
    app.launch();
    turn();
    clock.advance(0.1);
    EXPECT_EQ(panels.panelCount, 3);
    for (const auto* role : {"popover", "overlay", "guide"})
        EXPECT_TRUE(panels.byRole.at(QString::fromLatin1(role))->isVisible()) << role;
}

TEST_F(MirkpadAppTest, openPopover_always_givesItTheKeyboard)
{
    app.launch();
    clock.advance(0.1);
    const FakePanel& popover = *panels.byRole.at(QStringLiteral("popover"));
    EXPECT_FALSE(popover.isKey);
    app.openPopover();
    EXPECT_TRUE(popover.isKey);
}

TEST_F(MirkpadAppTest, colorScheme_startAndChange_isFollowed)
{
    EXPECT_EQ(ground(), ground(Surroundings::light));
    colorScheme.prefersDark = true;
    turn();
    EXPECT_EQ(ground(), ground(Surroundings::dark));
    EXPECT_EQ(QToolTip::palette().color(QPalette::Window), ground(Surroundings::dark));
    colorScheme.prefersDark = false;
    turn();
    EXPECT_EQ(ground(), ground(Surroundings::light));
}

TEST_F(MirkpadAppTest, colorScheme_changed_openSettingsWindowFollows)
{
    app.showSettingsWindow();
    colorScheme.prefersDark = true;
    EXPECT_TRUE(waitFor(
        [] { return surroundingsOf(*settingsWindows().constFirst()) == Surroundings::dark; }));
}

TEST_F(MirkpadAppTest, launch_mirkModeOn_isWantedBeforeAnyWindowIsShown)
{
    journal.take();
    app.launch();
    const std::vector<std::string> calls = journal.take();
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ(calls.front(), "mirkProtection.setWanted(true)");
}

TEST_F(MirkpadAppTest, mirkEffect_changed_badgeAndSwitchSayIt)
{
    app.launch();
    app.showSettingsWindow();
    const FakePanel& panel = *panels.byRole.at(QStringLiteral("overlay"));
    auto* overlay = dynamic_cast<OverlayView*>(panel.content.get());
    ASSERT_TRUE(overlay);
    const auto* badge = overlay->findChild<QWidget*>(QStringLiteral("mirkBadge"));
    const auto* toggle = settingsWindows().constFirst()->findChild<QWidget*>(
        QStringLiteral("Mirk mode (hide from recordings)"));
    for (const MirkEffect effect : {MirkEffect::unknown, MirkEffect::hidden, MirkEffect::blackBox,
             MirkEffect::none, MirkEffect::unknown}) {
        mirkProtection.effect = effect;
        turn();
        EXPECT_EQ(badge->toolTip(), mirkDescription(effect));
        EXPECT_EQ(badge->accessibleDescription(), mirkDescription(effect));
        EXPECT_EQ(toggle->accessibleDescription(), mirkDescription(effect));
    }
}

TEST_F(MirkpadAppTest, showSettingsWindow_firstTime_isAWindowWithATitle)
{
    app.showSettingsWindow();
    ASSERT_EQ(settingsWindows().size(), 1);
    const SettingsView& window = *settingsWindows().constFirst();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Sablequill Settings"));
    EXPECT_FALSE(window.windowIcon().isNull());
    EXPECT_TRUE(waitFor([&] { return window.isActiveWindow(); }));
}

TEST_F(MirkpadAppTest, showSettingsWindow_again_isTheSameWindowBroughtForward)
{
    app.showSettingsWindow();
    QWidget other;
    present(other);
    other.activateWindow();
    EXPECT_TRUE(waitFor([&] { return other.isActiveWindow(); }));
    app.showSettingsWindow();
    ASSERT_EQ(settingsWindows().size(), 1);
    EXPECT_TRUE(waitFor([] { return settingsWindows().constFirst()->isActiveWindow(); }));
}

TEST_F(MirkpadAppTest, showSettingsWindow_minimized_isSeenAgain)
{
    app.showSettingsWindow();
    QWidget& window = *settingsWindows().constFirst();
    window.showMinimized();
    turn();
    EXPECT_TRUE(window.isMinimized());
    app.showSettingsWindow();
    EXPECT_FALSE(window.isMinimized());
    EXPECT_TRUE(window.isVisible());
}

TEST_F(MirkpadAppTest, settingsWindow_closed_opensAgain)
{
    app.showSettingsWindow();
    settingsWindows().constFirst()->close();
    EXPECT_FALSE(settingsWindows().constFirst()->isVisible());
    app.showSettingsWindow();
    ASSERT_EQ(settingsWindows().size(), 1);
    EXPECT_TRUE(settingsWindows().constFirst()->isVisible());
}

TEST_F(MirkpadAppTest, lastWindow_closed_programRunsOn)
{
    constexpr int ownEnd = 7;
    app.launch();
    app.showSettingsWindow();
    // The toolkit would post its end when the window closes, before the second turn.
    QMetaObject::invokeMethod(
        qApp,
        [] {
            settingsWindows().constFirst()->close();
            QMetaObject::invokeMethod(
                qApp,
                [] {
                    QMetaObject::invokeMethod(
                        qApp, [] { QCoreApplication::exit(ownEnd); }, Qt::QueuedConnection);
                },
                Qt::QueuedConnection);
        },
        Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), ownEnd);
}

} // namespace
} // namespace sablequill
