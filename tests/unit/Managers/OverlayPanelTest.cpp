// SPDX-License-Identifier: MIT
#include "OverlayPanel.h"

#include "AppSettings.h"
#include "FakePanel.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using Lines = std::vector<std::string>;

class OverlayPanelTest : public testing::Test {
protected:
    Journal journal;
    FakeClock clock;
    FakePanelFactory panels{journal, clock};
};

TEST_F(OverlayPanelTest, construct_fourArguments_reachThePlatformUnchanged)
{
    const OverlayPanel panel(panels, {1, 2, 3, 4}, 8, BackingStore::buffered, true);

    EXPECT_EQ(journal.take(), Lines{"panels.makePanel([1 2 3 4], 8, 2, true, true, false)"});
    EXPECT_EQ(&panel.panel(), panels.panel);
}

TEST_F(OverlayPanelTest, construct_always_takesTheKeyboardAndIsNeverMain)
{
    const OverlayPanel panel(panels, {}, StyleMask::borderless, BackingStore::buffered, false);

    EXPECT_TRUE(panels.panel->description.canBecomeKey);
    EXPECT_FALSE(panels.panel->description.canBecomeMain);
}

TEST_F(OverlayPanelTest, applySettings_onTop_opacityThenFloatingThenMovable)
{
    OverlayPanel panel(panels, {}, 0, BackingStore::buffered, false);
    AppSettings settings;
    settings.opacity = 0.5;
    journal.take();

    panel.applySettings(settings);

    EXPECT_EQ(journal.take(),
        (Lines{"panel.setAlpha(0.5)", "panel.setLevel(3)",
            "panel.setMovableByWindowBackground(true)"}));
}

TEST_F(OverlayPanelTest, applySettings_notOnTop_normalLevel)
{
    OverlayPanel panel(panels, {}, 0, BackingStore::buffered, false);
    AppSettings settings;
    settings.alwaysOnTop = false;
    journal.take();

    panel.applySettings(settings);

    EXPECT_EQ(journal.take(),
        (Lines{"panel.setAlpha(0.92)", "panel.setLevel(0)",
            "panel.setMovableByWindowBackground(true)"}));
}

} // namespace
} // namespace sablequill
