// SPDX-License-Identifier: MIT
#include "WindowsTest.h"

#include <algorithm>

#include <sys/wait.h>

namespace sablequill {
namespace {

const QString secondTitle = QStringLiteral("Zweiter — größer");

/// Each window of the program is walked through and used by the names of its controls alone.
class AccessibilityTest : public WindowsTest {
protected:
    /// Fails the test for each control that can be seen and has no name, or does not tell what it
    /// is.
    void expectEveryControlTellsWhatItIs() const
    {
        int controls = 0;
        for (const auto& [object, name, role] : shown()) {
            if (!object.isControl())
                continue;
            ++controls;
            EXPECT_FALSE(name.trimmed().isEmpty()) << "without a name: " << object;
            EXPECT_NE(role, u"filler") << "without a role: " << object;
            EXPECT_NE(role, u"unknown") << "without a role: " << object;
        }
        EXPECT_GT(controls, 0);
    }

    void pressTab(const QString& name) const
    {
        press(name, Role::tab);
        EXPECT_TRUE(waitUntil([&] {
            const auto tab = named(name, Role::tab);
            return tab && tab->is(AccessibleState::checked);
        })) << name.toStdString();
    }

    void openSettings()
    {
        startProgram();
        press(QStringLiteral("Settings…"));
        expectShown(QStringLiteral("Sablequill Settings"), Role::window);
    }
};

TEST_P(AccessibilityTest, guide_pressedByNames_leadsThroughItsPages)
{
    const QString next = QStringLiteral("Continue");
    const QString secondPage = QStringLiteral("Mirk Mode");
    auto settings = settingsWith(cardInCorner);
    settings[u"hasCompletedOnboarding"] = false;
    user.writeSettings(settings);
    startProgram();
    expectShown(QStringLiteral("Welcome to Sablequill"), Role::label);
    EXPECT_FALSE(isShown(QStringLiteral("Back"), Role::button));
    expectEveryControlTellsWhatItIs();

    press(next);
    expectShown(secondPage, Role::label);
    expectGone(QStringLiteral("Welcome to Sablequill"), Role::label);
    expectEveryControlTellsWhatItIs();
    press(next);
    expectShown(QStringLiteral("Keyboard Shortcuts"), Role::label);
    expectGone(secondPage, Role::label);
    EXPECT_FALSE(isShown(next, Role::button));
    expectEveryControlTellsWhatItIs();
    press(QStringLiteral("Back"));
    expectShown(secondPage, Role::label);
    EXPECT_EQ(setting(QStringLiteral("hasCompletedOnboarding")), false);

    press(next);
    press(QStringLiteral("Get Started"));
    expectSetting(QStringLiteral("hasCompletedOnboarding"), true);
    expectGone(QStringLiteral("Get Started"), Role::button);
    endProgram();
}

TEST_P(AccessibilityTest, overlay_reading_isUsedByNames)
{
    startProgram();
    expectShown(QStringLiteral("1 / 3"), Role::label);
    expectEveryControlTellsWhatItIs();
    EXPECT_TRUE(isShown(QStringLiteral("Mirk mode is on"), Role::label));

    press(QStringLiteral("Next note"));
    expectShown(QStringLiteral("2 / 3"), Role::label);
    expectShown(secondTitle, Role::label);
    press(QStringLiteral("Previous note"));
    expectShown(QStringLiteral("1 / 3"), Role::label);
    press(QStringLiteral("Previous note"));
    expectShown(QStringLiteral("3 / 3"), Role::label);
    const auto note = named(QStringLiteral("Note"), Role::label);
    ASSERT_TRUE(note);
    EXPECT_EQ(note->text(), QStringLiteral("Third\n\nwithout a heading"));

    press(QStringLiteral("Hide the overlay"));
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    endProgram();
}

TEST_P(AccessibilityTest, overlay_editing_isUsedByNames)
{
    const QString editor = QStringLiteral("Note text");
    startProgram();
    press(QStringLiteral("Edit the note"));
    expectShown(editor, Role::text);
    expectEveryControlTellsWhatItIs();
    EXPECT_EQ(named(editor, Role::text)->text(), QStringLiteral("# First\n\nOne short line."));
    EXPECT_TRUE(named(editor, Role::text)->setText(QStringLiteral("# Dictated\n\nto a program")));
    expectSaved(0, QStringLiteral("# Dictated\n\nto a program"));
    expectShown(QStringLiteral("Dictated"), Role::label);

    press(QStringLiteral("Show the note"));
    expectGone(editor, Role::text);
    EXPECT_EQ(named(QStringLiteral("Note"), Role::label)->text(),
        QStringLiteral("# Dictated\n\nto a program"));
    press(QStringLiteral("New"));
    EXPECT_TRUE(waitUntil([&] { return savedNotes() == 4; }));
    expectShown(editor, Role::text);
    expectShown(QStringLiteral("1 / 4"), Role::label);
    endProgram();
}

TEST_P(AccessibilityTest, popover_pressedByNames_doesWhatItSays)
{
    startProgram();
    press(secondTitle);
    expectShown(QStringLiteral("2 / 3"), Role::label);
    EXPECT_EQ(
        named(secondTitle, Role::button)->description(), QStringLiteral("Shown in the overlay"));
    expectEveryControlTellsWhatItIs();
    EXPECT_TRUE(isShown(QStringLiteral("Mirk mode is on"), Role::label));

    press(QStringLiteral("Toggle Overlay"));
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    press(QStringLiteral("Show Overlay"));
    EXPECT_TRUE(waitUntil([&] { return overlay.isShown(); }));
    press(QStringLiteral("New Note"));
    EXPECT_TRUE(waitUntil([&] { return savedNotes() == 4; }));
    EXPECT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    expectShown(QStringLiteral("Note text"), Role::text);
    endProgram();
}

TEST_P(AccessibilityTest, quit_pressedByName_endsTheProgram)
{
    startProgram();
    press(QStringLiteral("Quit Sablequill"));
    const auto status = program->waitForEnd();
    ASSERT_TRUE(status) << "does not end";
    EXPECT_TRUE(WIFEXITED(*status));
    EXPECT_EQ(WEXITSTATUS(*status), 0);
}

TEST_P(AccessibilityTest, settings_general_controlsAreSetByNames)
{
    struct ToggleRow {
        QString name;
        QString key;
        bool before;
    };
    const ToggleRow toggles[] = {
        {QStringLiteral("Always on top"), QStringLiteral("alwaysOnTop"), true},
        {QStringLiteral("Launch at login"), QStringLiteral("launchAtStartup"), false},
        {QStringLiteral("Mirk mode (hide from recordings)"), QStringLiteral("mirkModeEnabled"),
            true},
    };
    openSettings();
    expectEveryControlTellsWhatItIs();
    const auto opacity = named(QStringLiteral("Opacity"), Role::slider);
    const auto fontSize = named(QStringLiteral("Font Size"), Role::slider);
    ASSERT_TRUE(opacity && fontSize);
    opacity->setValue(50);
    expectSetting(QStringLiteral("opacity"), 0.5);
    expectShown(QStringLiteral("50%"), Role::label);
    EXPECT_EQ(opacity->value(), 50);
    fontSize->setValue(20);
    expectSetting(QStringLiteral("fontSize"), 20);
    expectShown(QStringLiteral("20 pt"), Role::label);
    for (const auto& [name, key, before] : toggles) {
        EXPECT_EQ(named(name, Role::toggle)->is(AccessibleState::checked), before);
        press(name, Role::toggle);
        expectSetting(key, !before);
        EXPECT_EQ(named(name, Role::toggle)->is(AccessibleState::checked), !before);
    }
    endProgram();
}

TEST_P(AccessibilityTest, settings_notes_areListedMadeAndSelectedByNames)
{
    openSettings();
    pressTab(QStringLiteral("Notes"));
    expectShown(QStringLiteral("Notes"), Role::list);
    expectEveryControlTellsWhatItIs();
    const auto second = noteRow(1);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->role(), Role::row);
    EXPECT_EQ(second->name(), secondTitle);
    EXPECT_TRUE(second->press());
    expectShown(QStringLiteral("2 / 3"), Role::label);
    EXPECT_TRUE(waitUntil([&] { return noteRow(1)->is(AccessibleState::selected); }));
    EXPECT_TRUE(noteRow(1)->description().startsWith(u"Shown in the overlay."));

    // The popover has a button of that name too.
    const auto all = shown();
    const auto window = std::find_if(all.begin(), all.end(),
        [](const SeenObject& seen) { return seen.name == u"Sablequill Settings"; });
    const auto button = std::find_if(window, all.end(), [](const SeenObject& seen) {
        return seen.name == u"New Note" && seen.role == Role::button;
    });
    ASSERT_NE(button, all.end());
    EXPECT_TRUE(button->object.press());
    EXPECT_TRUE(waitUntil([&] { return savedNotes() == 4; }));
    expectShown(QStringLiteral("1 / 4"), Role::label);
    EXPECT_TRUE(waitUntil([&] { return noteRow(0)->name() == u"New Note"; }));
    endProgram();
}

TEST_P(AccessibilityTest, settings_shortcutsAndAbout_areReadAndResetByName)
{
    auto settings = settingsWith(cardInCorner);
    auto shortcuts = settings[u"shortcuts"].toObject();
    const QJsonValue standard = shortcuts[u"toggleOverlay"];
    shortcuts[u"toggleOverlay"] =
        QJsonObject{{QStringLiteral("keyCode"), 11}, {QStringLiteral("modifiers"), 3}};
    settings[u"shortcuts"] = shortcuts;
    user.writeSettings(settings);
    openSettings();
    pressTab(QStringLiteral("Shortcuts"));
    expectShown(QStringLiteral("⇧⌘B"), Role::label);
    expectEveryControlTellsWhatItIs();
    press(QStringLiteral("Reset to Defaults"));
    expectShown(QStringLiteral("⇧⌘G"), Role::label);
    EXPECT_TRUE(waitUntil(
        [&] { return setting(QStringLiteral("shortcuts"))[u"toggleOverlay"] == standard; }));

    pressTab(QStringLiteral("About"));
    expectShown(QStringLiteral("Floating teleprompter for creators.\n"
                               "Keep your notes visible while presenting."),
        Role::label);
    expectEveryControlTellsWhatItIs();
    endProgram();
}

INSTANTIATE_FOR_ALL_SETUPS(AccessibilityTest);

} // namespace
} // namespace sablequill
