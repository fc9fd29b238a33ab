// SPDX-License-Identifier: MIT
#pragma once

#include "WindowManager.h"

#include "FakeMainQueue.h"
#include "FakePanel.h"
#include "FakePanelContent.h"
#include "FakeScreens.h"
#include "Printing.h"

#include <gtest/gtest.h>

namespace sablequill {

using Lines = std::vector<std::string>;

// What the journal shows of the steps that recur.
inline const std::string fadeIn = "panel.animateAlpha(0.92, 0.22, easeInEaseOut)";
inline const std::string fadeOut = "panel.animateAlpha(0, 0.22, easeInEaseOut)";
inline const Lines excluded{"panel.setSharingType(0)", "panel.setLevel(3)"};
inline const Lines mirked{"panel.setLevel(3)", "panel.setCollectionBehavior(337)",
    "panel.setSharingType(0)", "panel.setLevel(3)"};
inline const Lines unmirked{
    "panel.setLevel(3)", "panel.setCollectionBehavior(337)", "panel.setSharingType(1)"};

inline Lines operator+(Lines first, const Lines& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// A window manager on a desktop in memory, with a screen of 1440 by 900 points.
class WindowManagerFixture : public testing::Test {
protected:
    WindowManagerFixture()
    {
        manager->onFrameChanged = [this](const OverlayFrame& frame) {
            journal.record("onFrameChanged", frame);
        };
    }

    void createPanel()
    {
        manager->createOverlayPanel(std::make_unique<FakePanelContent>());
        journal.take();
    }

    void apply(const AppSettings& settings)
    {
        manager->applySettings(settings);
        journal.take();
    }

    static AppSettings withoutMirkMode()
    {
        AppSettings settings;
        settings.mirkModeEnabled = false;
        return settings;
    }

    FakePanel& panel() { return *panels.panel; }

    Journal journal;
    FakeClock clock;
    FakePanelFactory panels{journal, clock};
    FakeScreens screens{journal};
    FakeMainQueue mainQueue{journal, clock};
    std::unique_ptr<WindowManager> manager =
        std::make_unique<WindowManager>(panels, screens, mainQueue);
};

} // namespace sablequill
