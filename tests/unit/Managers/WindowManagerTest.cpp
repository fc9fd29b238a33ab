// SPDX-License-Identifier: MIT
#include "WindowManagerFixture.h"

namespace sablequill {
namespace {

using WindowManagerTest = WindowManagerFixture;

TEST_F(WindowManagerTest, construct_always_asksNothingOfTheDesktop)
{
    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_EQ(manager->overlayPanel, nullptr);
}

TEST_F(WindowManagerTest, createOverlayPanel_defaults_wholeSequence)
{
    const OverlayPanel* made = manager->createOverlayPanel(std::make_unique<FakePanelContent>());

    EXPECT_EQ(journal.take(),
        (Lines{"screens.mainVisibleFrame()",
            "panels.makePanel([510 310 420 280], 136, 2, false, true, false)",
            "panel.setAttributes()", "panel.setDelegate(delegate)", "panel.setContent(content)",
            "panel.setAlpha(0.92)", "panel.setLevel(3)", "panel.setMovableByWindowBackground(true)",
            "panel.setDidEndLiveResize(observer)"}));
    EXPECT_EQ(made, manager->overlayPanel.get());
    EXPECT_FALSE(manager->isOverlayVisible());
}

TEST_F(WindowManagerTest, createOverlayPanel_always_attributesOfAFloatingClearDarkPanel)
{
    createPanel();

    const PanelAttributes expected{.isFloatingPanel = true,
        .titleVisibility = TitleVisibility::hidden,
        .titlebarAppearsTransparent = true,
        .isMovableByWindowBackground = true,
        .backgroundColor = BackgroundColor::clear,
        .isOpaque = false,
        .hasShadow = false,
        .minWidth = 280,
        .minHeight = 160,
        .appearance = Appearance::darkAqua};
    EXPECT_EQ(panel().attributes, expected);
}

TEST_F(WindowManagerTest, createOverlayPanel_content_isHostedByThePanel)
{
    auto content = std::make_unique<FakePanelContent>();
    const auto* expected = content.get();

    manager->createOverlayPanel(std::move(content));

    EXPECT_EQ(panel().content.get(), expected);
}

TEST_F(WindowManagerTest, createOverlayPanel_mirkModeOn_mirkModeWaitsForTheFirstShow)
{
    createPanel();

    EXPECT_EQ(panel().sharingType, SharingType::readOnly);
    EXPECT_EQ(panel().collectionBehavior, 0U);
}

TEST_F(WindowManagerTest, createOverlayPanel_settingsAppliedBefore_styleThePanel)
{
    AppSettings settings;
    settings.opacity = 0.4;
    settings.alwaysOnTop = false;
    apply(settings);

    createPanel();

    EXPECT_EQ(panel().alpha(), 0.4);
    EXPECT_EQ(panel().level, WindowLevel::normal);
}

TEST_F(WindowManagerTest, createOverlayPanel_again_replacesTheEarlierPanel)
{
    createPanel();
    const OverlayPanel* second = manager->createOverlayPanel(std::make_unique<FakePanelContent>());

    EXPECT_EQ(manager->overlayPanel.get(), second);
    EXPECT_EQ(panels.panelCount, 2);
    journal.take();
    panel().endLiveResize();
    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([510 310 420 280])"} + excluded);
}

struct FrameRow {
    const char* name;
    std::optional<OverlayFrame> stored;
    std::optional<Rect> visibleFrame;
    Rect expected;

    friend void PrintTo(const FrameRow& row, std::ostream* stream) { *stream << row.name; }
};

class RestoredFrameTest : public WindowManagerTest,
                          public testing::WithParamInterface<FrameRow> { };

TEST_P(RestoredFrameTest, restoredFrame_storedFrameAndScreen_frameOfTheNewPanel)
{
    screens.visibleFrame = GetParam().visibleFrame;
    AppSettings settings;
    settings.overlayFrame = GetParam().stored;
    apply(settings);

    EXPECT_EQ(manager->restoredFrame(), GetParam().expected);
    createPanel();
    EXPECT_EQ(panel().frame(), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Frames, RestoredFrameTest,
    testing::Values(
        FrameRow{"noStoredFrame_centered", {}, Rect{0, 0, 1440, 900}, {510, 310, 420, 280}},
        FrameRow{"screenWithDock_centeredInItsVisibleFrame", {}, Rect{70, 30, 1851, 1005},
            {785.5, 392.5, 420, 280}},
        FrameRow{"screenLeftOfThePrimary_centeredThere", {}, Rect{-1920, -200, 1920, 1080},
            {-1170, 200, 420, 280}},
        FrameRow{"smallScreen_sizeKept", {}, Rect{0, 0, 320, 200}, {-50, -40, 420, 280}},
        FrameRow{"noScreen_fixedFrame", {}, {}, {100, 100, 420, 280}},
        FrameRow{"storedFrame_exact", OverlayFrame{12.5, 20.25, 500, 300}, Rect{0, 0, 1440, 900},
            {12.5, 20.25, 500, 300}},
        FrameRow{"storedFrameOffScreenAndTooSmall_asItStands", OverlayFrame{-5000, -5000, 100, 50},
            Rect{0, 0, 1440, 900}, {-5000, -5000, 100, 50}},
        FrameRow{"storedFrameWithoutScreen_exact", OverlayFrame{1, 2, 3, 4}, {}, {1, 2, 3, 4}}),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
} // namespace sablequill
