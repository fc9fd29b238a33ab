// SPDX-License-Identifier: MIT
#include "ShortcutsSettingsTab.h"

#include "Accessibility.h"
#include "AppFixture.h"
#include "Ink.h"
#include "TextLabel.h"
#include "Widgets.h"

#include <QTest>

namespace sablequill {
namespace {

const QString reset = QStringLiteral("Reset to Defaults");
const QString caption = QStringLiteral("Global shortcuts work system-wide. Toggle overlay: ⌘⇧G · "
                                       "Quick open: ⌘⇧O · Previous/Next note: ⌘⇧↑/↓");
const QStringList defaults{
    QStringLiteral("⇧⌘G"), QStringLiteral("⇧⌘O"), QStringLiteral("⇧⌘↓"), QStringLiteral("⇧⌘↑")};
const KeyboardShortcutBinding optionN{45, KeyboardShortcutBinding::ModifierFlags::option};

class ShortcutsSettingsTabTest : public AppFixture {
protected:
    ShortcutsSettingsTabTest()
    {
        tab.resize(520, 340);
        present(tab);
        tab.activateWindow();
        journal.take();
    }

    TextLabel& binding(HotkeyAction action) { return found<TextLabel>(tab, rawValue(action)); }
    QStringList bindings()
    {
        turn();
        QStringList texts;
        for (const HotkeyAction action : allHotkeyActions)
            texts.append(binding(action).text());
        return texts;
    }
    /// What tooltips and a screen reader say of the four, each of it once.
    QStringList descriptions()
    {
        QStringList texts;
        for (const HotkeyAction action : allHotkeyActions)
            texts << binding(action).accessibleDescription()
                  << binding(action).parentWidget()->toolTip();
        texts.removeDuplicates();
        return texts;
    }
    void clickReset() { QTest::mouseClick(&found(tab, reset), Qt::LeftButton); }

    SettingsViewModel& viewModel = *appState.settingsViewModel;
    ShortcutsSettingsTab tab{viewModel, appState};
};

TEST_F(ShortcutsSettingsTabTest, texts_firstRun_areExactAndInOrder)
{
    EXPECT_EQ(textsIn(tab),
        QStringList({QStringLiteral("Toggle Overlay"), defaults[0], QStringLiteral("Quick Open"),
            defaults[1], QStringLiteral("Next Note"), defaults[2], QStringLiteral("Previous Note"),
            defaults[3], reset, caption}));
}

TEST_F(ShortcutsSettingsTabTest, bindings_changed_areFollowedAndTheCaptionStays)
{
    auto shortcuts = viewModel.shortcuts.get();
    shortcuts[HotkeyAction::quickOpen] = optionN;
    viewModel.shortcuts = shortcuts;
    EXPECT_EQ(bindings()[1], optionN.displayString());
    EXPECT_TRUE(textsIn(tab).contains(caption));
}

TEST_F(ShortcutsSettingsTabTest, bindings_missing_areADash)
{
    viewModel.shortcuts = std::map<HotkeyAction, KeyboardShortcutBinding>{};
    EXPECT_EQ(bindings(),
        QStringList(
            {QStringLiteral("—"), QStringLiteral("—"), QStringLiteral("—"), QStringLiteral("—")}));
}

TEST_F(ShortcutsSettingsTabTest, reset_click_savesFirstAndThenRegisters)
{
    appState.hotkeyManager->updateShortcut(HotkeyAction::toggleOverlay, optionN);
    journal.take();
    clickReset();
    EXPECT_EQ(journal.take(),
        (std::vector<std::string>{"loginItem.unregisterItem()", "hotKeys.unregisterHotKey(5)",
            "hotKeys.unregisterHotKey(2)", "hotKeys.unregisterHotKey(3)",
            "hotKeys.unregisterHotKey(4)", "hotKeys.installEventHandler(1801812322, 5)",
            "hotKeys.registerHotKey(5, 768, 1296781380, 1)",
            "hotKeys.registerHotKey(31, 768, 1296781380, 2)",
            "hotKeys.registerHotKey(125, 768, 1296781380, 3)",
            "hotKeys.registerHotKey(126, 768, 1296781380, 4)"}));
    EXPECT_EQ(savedSettings().shortcuts, defaultShortcuts());
}

TEST_F(ShortcutsSettingsTabTest, reset_otherBindings_showsTheDefaults)
{
    auto shortcuts = viewModel.shortcuts.get();
    for (auto& [action, value] : shortcuts)
        value = optionN;
    viewModel.shortcuts = shortcuts;
    clickReset();
    EXPECT_EQ(bindings(), defaults);
    EXPECT_TRUE(textsIn(tab).contains(caption));
}

TEST_F(ShortcutsSettingsTabTest, reset_keysAlone_works)
{
    EXPECT_EQ(accessibleName(*focusAfterTab(tab)), reset);
    QTest::keyClick(tab.focusWidget(), Qt::Key_Return);
    QTest::keyClick(tab.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(callsOf("loginItem.unregisterItem()"), 2);
}

TEST_F(ShortcutsSettingsTabTest, rows_heldByTheDesktop_sayWhereTheKeysAreChanged)
{
    const QString description =
        QStringLiteral("The desktop holds these keys. Change them in its own settings.");
    const QStringList before = textsIn(tab);
    EXPECT_EQ(descriptions(), QStringList(QString()));
    hotKeys.currentHolder.isDesktop = true;
    turn();
    EXPECT_EQ(descriptions(), QStringList(description));
    EXPECT_EQ(textsIn(tab), before);
    hotKeys.currentHolder.isDesktop = false;
    turn();
    EXPECT_EQ(descriptions(), QStringList(QString()));
}

TEST_F(ShortcutsSettingsTabTest, caption_always_isWhollyShownInItsStyle)
{
    const auto labels = tab.findChildren<TextLabel*>();
    const TextLabel* label = labels.last();
    ASSERT_EQ(label->text(), caption);
    EXPECT_EQ(label->style(), TextStyles::caption);
    EXPECT_EQ(label->ink(), Ink{InkRole::secondary});
    EXPECT_GE(label->height(), label->heightForWidth(label->width()));
    EXPECT_TRUE(tab.rect().contains(frameIn(tab, *label)));
    EXPECT_EQ(binding(HotkeyAction::nextNote).ink(), Ink{InkRole::secondary});
}

} // namespace
} // namespace sablequill
