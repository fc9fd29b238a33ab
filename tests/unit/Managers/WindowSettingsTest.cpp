// SPDX-License-Identifier: MIT
#include "WindowManagerFixture.h"

namespace sablequill {
namespace {

/// Restyling a panel by the settings.
using WindowSettingsTest = WindowManagerFixture;

TEST_F(WindowSettingsTest, applySettings_noPanel_onlyKeepsThem)
{
    manager->applySettings({});

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(WindowSettingsTest, applySettings_mirkModeOn_panelSettingsThenMirkMode)
{
    createPanel();
    AppSettings settings;
    settings.opacity = 0.6;

    manager->applySettings(settings);

    EXPECT_EQ(journal.take(),
        (Lines{
            "panel.setAlpha(0.6)", "panel.setLevel(3)", "panel.setMovableByWindowBackground(true)"})
            + mirked);
}

TEST_F(WindowSettingsTest, applySettings_notOnTop_levelIsFloatingAfterwardsAllTheSame)
{
    createPanel();
    AppSettings settings = withoutMirkMode();
    settings.alwaysOnTop = false;

    manager->applySettings(settings);

    EXPECT_EQ(journal.take(),
        (Lines{"panel.setAlpha(0.92)", "panel.setLevel(0)",
            "panel.setMovableByWindowBackground(true)"})
            + unmirked);
    EXPECT_EQ(panel().level, WindowLevel::floating);
}

TEST_F(WindowSettingsTest, applySettings_mirkModeTurnedOff_panelIsCapturableAgain)
{
    createPanel();
    manager->showOverlay();
    EXPECT_EQ(panel().sharingType, SharingType::none);

    manager->applySettings(withoutMirkMode());

    EXPECT_EQ(panel().sharingType, SharingType::readOnly);
}

TEST_F(WindowSettingsTest, level_notOnTop_normalUntilShownInMirkMode)
{
    AppSettings settings;
    settings.alwaysOnTop = false;
    apply(settings);
    createPanel();
    EXPECT_EQ(panel().level, WindowLevel::normal);

    manager->showOverlay();

    EXPECT_EQ(panel().level, WindowLevel::floating);
}

TEST_F(WindowSettingsTest, level_notOnTopWithoutMirkMode_normalAlsoWhenShown)
{
    AppSettings settings = withoutMirkMode();
    settings.alwaysOnTop = false;
    apply(settings);
    createPanel();

    manager->showOverlay();

    EXPECT_EQ(panel().level, WindowLevel::normal);
}

TEST_F(WindowSettingsTest, applyMirkMode_anyWindow_followsTheSettings)
{
    FakePanel other(journal, clock, {});

    manager->applyMirkMode(other);
    EXPECT_EQ(journal.take(), mirked);

    manager->applySettings(withoutMirkMode());
    manager->applyMirkMode(other);
    EXPECT_EQ(journal.take(), unmirked);
}

TEST_F(WindowSettingsTest, captureExclusionSupported_thisDesktop_false)
{
    EXPECT_FALSE(manager->captureExclusionSupported());
}

} // namespace
} // namespace sablequill
