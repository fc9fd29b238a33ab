// SPDX-License-Identifier: MIT
#include "SettingsWindow.h"

#include <filesystem>
#include <fstream>

#include <sys/stat.h>

namespace sablequill {
namespace {

namespace fs = std::filesystem;

const QString opacity = QStringLiteral("Opacity");
const QString fontSize = QStringLiteral("Font Size");
const QString alwaysOnTop = QStringLiteral("Always on top");
const QString launchAtLogin = QStringLiteral("Launch at login");
const QString mirkMode = QStringLiteral("Mirk mode (hide from recordings)");

class GeneralTabTest : public SettingsWindowTest {
protected:
    /// Waits for an opacity to be in settings.json, on the overlay and in the window.
    void expectOpacity(double value) const
    {
        expectSetting(QStringLiteral("opacity"), value);
        EXPECT_TRUE(waitUntil([&] { return std::abs(overlay.opacity() - value) < 0.005; }))
            << "the overlay has " << overlay.opacity() << ", not " << value;
        // As the window shows it: cut off, not rounded.
        expectShown(QStringLiteral("%1%").arg(static_cast<int>(value * 100)), Role::label);
    }

    void expectFontSize(int points) const
    {
        expectSetting(QStringLiteral("fontSize"), points);
        expectShown(QStringLiteral("%1 pt").arg(points), Role::label);
    }

    /// A place in a slider, from its left end to its right end.
    Point placeIn(const QString& slider, double fraction) const
    {
        const Area area = place(slider, Role::slider);
        return {area.x + static_cast<int>(area.width * fraction), area.center().y};
    }

    fs::path autostartEntry() const
    {
        return user.path() / "config" / "autostart" / "io.github.sablequill.Sablequill.desktop";
    }
};

TEST_P(GeneralTabTest, opacitySlider_mouse_isSavedAndAppliedAtEachStep)
{
    openByMouse();
    mouse.moveTo(placeIn(opacity, 0.5));
    mouse.press();
    expectOpacity(0.7);
    // Beyond both ends, with the button still held.
    mouse.moveTo({0, placeIn(opacity, 0).y});
    expectOpacity(0.4);
    mouse.moveTo({placeIn(opacity, 1).x + 300, placeIn(opacity, 1).y});
    expectOpacity(1);
    mouse.release();
    mouse.turnWheel(placeIn(opacity, 0.5), -1);
    expectOpacity(0.98);
    mouse.turnWheel(placeIn(opacity, 0.5), -2);
    expectOpacity(0.94);
    mouse.turnWheel(placeIn(opacity, 0.5), 3);
    expectOpacity(1);
    mouse.turnWheel(placeIn(opacity, 0.5), 1);
    EXPECT_TRUE(
        holdsFor([&] { return setting(QStringLiteral("opacity")) == 1.0; }, Milliseconds(100)));
    endProgram();
}

TEST_P(GeneralTabTest, opacitySlider_dragged_goesThroughEveryStep)
{
    openByMouse();
    mouse.moveTo(placeIn(opacity, 0.5));
    mouse.press();
    expectOpacity(0.7);
    for (int hundredths = 72; hundredths <= 80; hundredths += 2) {
        mouse.moveTo(placeIn(opacity, (hundredths - 40) / 60.0));
        expectOpacity(hundredths / 100.0);
    }
    mouse.release();
    endProgram();
}

TEST_P(GeneralTabTest, fontSizeSlider_mouse_isSavedAndAppliedAtEachStep)
{
    openByMouse();
    const QImage before = overlay.steadyPicture();
    mouse.moveTo(placeIn(fontSize, 0.5));
    mouse.press();
    expectFontSize(20);
    EXPECT_NE(overlay.steadyPicture(), before);
    mouse.moveTo({0, placeIn(fontSize, 0).y});
    expectFontSize(12);
    mouse.moveTo({placeIn(fontSize, 1).x + 300, placeIn(fontSize, 1).y});
    expectFontSize(28);
    mouse.release();
    mouse.turnWheel(placeIn(fontSize, 0.5), -1);
    expectFontSize(27);
    endProgram();
}

TEST_P(GeneralTabTest, controls_byKeysAlone_areReachedAndChanged)
{
    startProgram();
    openByKeyboard();
    tabTo(opacity);
    keyboard.tap(KeyCode::left);
    expectOpacity(0.90);
    keyboard.tap(KeyCode::right);
    expectOpacity(0.92);
    keyboard.tap(KeyCode::home);
    expectOpacity(0.40);
    keyboard.tap(KeyCode::end);
    expectOpacity(1);

    tabTo(fontSize);
    keyboard.tap(KeyCode::right);
    expectFontSize(17);
    keyboard.tap(KeyCode::home);
    expectFontSize(12);
    keyboard.tap(KeyCode::end);
    expectFontSize(28);

    tabTo(alwaysOnTop);
    keyboard.tap(KeyCode::space);
    expectSetting(QStringLiteral("alwaysOnTop"), false);
    tabTo(launchAtLogin);
    keyboard.tap(KeyCode::space);
    expectSetting(QStringLiteral("launchAtStartup"), true);
    tabTo(mirkMode);
    keyboard.tap(KeyCode::space);
    expectSetting(QStringLiteral("mirkModeEnabled"), false);
    endProgram();
}

TEST_P(GeneralTabTest, mirkMode_switched_isShownInTheOverlay)
{
    const QString badge = QStringLiteral("Mirk");
    openByMouse();
    expectShown(badge, Role::label);
    click(mirkMode, Role::toggle);
    expectSetting(QStringLiteral("mirkModeEnabled"), false);
    expectGone(badge, Role::label);
    expectShown(QStringLiteral("Mirk mode is off"), Role::label);
    click(mirkMode, Role::toggle);
    expectSetting(QStringLiteral("mirkModeEnabled"), true);
    expectShown(badge, Role::label);
    endProgram();
}

TEST_P(GeneralTabTest, launchAtLogin_switched_writesAndRemovesTheEntry)
{
    openByMouse();
    EXPECT_FALSE(fs::exists(autostartEntry()));
    click(launchAtLogin, Role::toggle);
    expectSetting(QStringLiteral("launchAtStartup"), true);
    ASSERT_TRUE(waitUntil([&] { return fs::exists(autostartEntry()); }));
    EXPECT_EQ(runCommand({{"desktop-file-validate", autostartEntry().string()}, user.environment(),
                  user.path() / "validate.log"}),
        "");
    const auto text = [&] {
        std::ifstream file(autostartEntry());
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    EXPECT_NE(text().find("\nExec=" SABLEQUILL_BINARY), std::string::npos) << text();

    struct stat before { };
    struct stat after { };
    ASSERT_EQ(stat(autostartEntry().c_str(), &before), 0);
    mouse.turnWheel(placeIn(opacity, 0.5), -3);
    expectOpacity(0.86);
    ASSERT_EQ(stat(autostartEntry().c_str(), &after), 0);
    EXPECT_EQ(after.st_ino, before.st_ino) << "written again by a slider's step";
    EXPECT_EQ(after.st_ctim.tv_sec, before.st_ctim.tv_sec);
    EXPECT_EQ(after.st_ctim.tv_nsec, before.st_ctim.tv_nsec);

    click(launchAtLogin, Role::toggle);
    expectSetting(QStringLiteral("launchAtStartup"), false);
    EXPECT_TRUE(waitUntil([&] { return !fs::exists(autostartEntry()); }));
    endProgram();
}

INSTANTIATE_FOR_ALL_SETUPS(GeneralTabTest);

} // namespace
} // namespace sablequill
