// SPDX-License-Identifier: MIT
#include "SettingsWindow.h"

namespace sablequill {
namespace {

/// The user has another key, Super+Shift+B, for showing and hiding the overlay.
class ShortcutsTabTest : public SettingsWindowTest {
protected:
    void SetUp() override
    {
        SettingsWindowTest::SetUp();
        auto settings = settingsWith(cardInCorner);
        standard = settings[u"shortcuts"];
        auto shortcuts = standard.toObject();
        shortcuts[u"toggleOverlay"] =
            QJsonObject{{QStringLiteral("keyCode"), 11}, {QStringLiteral("modifiers"), 3}};
        settings[u"shortcuts"] = shortcuts;
        user.writeSettings(settings);
    }

    /// Whether a press of that key hides the shown overlay, or shows the hidden one.
    void expectToggledBy(xcb_keycode_t key)
    {
        const bool wasShown = overlay.isShown();
        pressHotKey(key);
        EXPECT_TRUE(waitUntil([&] { return overlay.isShown() != wasShown; })) << int{key};
    }

    void expectNoEffectOf(xcb_keycode_t key)
    {
        const bool wasShown = overlay.isShown();
        pressHotKey(key);
        EXPECT_TRUE(holdsFor([&] { return overlay.isShown() == wasShown; }, watchTime)) << int{key};
    }

    void expectReset()
    {
        expectShown(QStringLiteral("⇧⌘G"), Role::label);
        expectSetting(QStringLiteral("shortcuts"), standard);
        expectToggledBy(KeyCode::g);
        expectToggledBy(KeyCode::g);
        expectNoEffectOf(KeyCode::b);
    }

    QJsonValue standard;
};

TEST_P(ShortcutsTabTest, rows_userHasAnotherKey_showTheUsersKeys)
{
    openTab(QStringLiteral("Shortcuts"));
    int bottom = 0;
    for (const auto& action : {QStringLiteral("Toggle Overlay"), QStringLiteral("Quick Open"),
             QStringLiteral("Next Note"), QStringLiteral("Previous Note")}) {
        const Area row = place(action, Role::label);
        EXPECT_GE(row.y, bottom) << action.toStdString();
        bottom = row.bottom();
    }
    for (const auto& keys : {QStringLiteral("⇧⌘B"), QStringLiteral("⇧⌘O"), QStringLiteral("⇧⌘↓"),
             QStringLiteral("⇧⌘↑")})
        expectShown(keys, Role::label);
    expectToggledBy(KeyCode::b);
    expectToggledBy(KeyCode::b);
    expectNoEffectOf(KeyCode::g);
    endProgram();
}

TEST_P(ShortcutsTabTest, reset_clicked_newKeysWorkAtOnce)
{
    openTab(QStringLiteral("Shortcuts"));
    click(QStringLiteral("Reset to Defaults"));
    expectReset();
    expectShown(QStringLiteral("Global shortcuts work system-wide. Toggle overlay: ⌘⇧G · "
                               "Quick open: ⌘⇧O · Previous/Next note: ⌘⇧↑/↓"),
        Role::label);
    endProgram();
}

TEST_P(ShortcutsTabTest, reset_byKey_newKeysWorkAtOnce)
{
    openTab(QStringLiteral("Shortcuts"));
    tabTo(QStringLiteral("Reset to Defaults"));
    keyboard.tap(KeyCode::space);
    expectReset();
    endProgram();
}

INSTANTIATE_FOR_ALL_SETUPS(ShortcutsTabTest);

} // namespace
} // namespace sablequill
