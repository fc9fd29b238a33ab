// SPDX-License-Identifier: MIT
#pragma once

#include "HotkeyManager.h"

#include "AppSettings.h"
#include "FakeApplication.h"
#include "FakeHotKeyCenter.h"
#include "FakeLoginItem.h"
#include "FakeMainQueue.h"
#include "FakePanel.h"
#include "FakeScreens.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "StorageManager.h"
#include "TemporaryHome.h"
#include "WindowManager.h"

#include <gtest/gtest.h>

namespace sablequill {

using Lines = std::vector<std::string>;

/// A hotkey manager between hot keys in memory and real managers, with three notes.
class HotkeyManagerFixture : public testing::Test {
protected:
    HotkeyManagerFixture()
    {
        notes->createNote();
        notes->createNote();
        journal.take();
    }

    void registerStored()
    {
        manager->bind(storage);
        manager->registerHotkeys();
        journal.take();
    }

    std::int32_t deliver(std::uint32_t id)
    {
        return center.deliver({{fourCharacterCode("MKPD"), id}});
    }

    TemporaryHome home;
    Journal journal;
    FakeClock clock;
    FakePanelFactory panels{journal, clock};
    FakeScreens screens{journal};
    FakeMainQueue mainQueue{journal, clock};
    FakeApplication application{journal};
    FakeHotKeyCenter center{journal};
    FakeLoginItem loginItem{journal};
    std::shared_ptr<StorageManager> storage = std::make_shared<StorageManager>(loginItem);
    std::shared_ptr<NotesManager> notes = std::make_shared<NotesManager>(storage);
    std::shared_ptr<OverlayManager> overlay = std::make_shared<OverlayManager>(
        std::make_shared<WindowManager>(panels, screens, mainQueue), notes, application);
    std::unique_ptr<HotkeyManager> manager =
        std::make_unique<HotkeyManager>(overlay, notes, center, mainQueue);
};

} // namespace sablequill
