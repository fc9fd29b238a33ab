// SPDX-License-Identifier: MIT
#pragma once

#include "HotkeyManager.h"

#include "AppSettings.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "PlatformFixture.h"
#include "StorageManager.h"
#include "WindowManager.h"

namespace sablequill {

using Lines = std::vector<std::string>;

/// A hotkey manager between hot keys in memory and real managers, with three notes.
class HotkeyManagerFixture : public PlatformFixture {
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
        return hotKeys.deliver({{fourCharacterCode("MKPD"), id}});
    }

    std::shared_ptr<StorageManager> storage = std::make_shared<StorageManager>(loginItem);
    std::shared_ptr<NotesManager> notes = std::make_shared<NotesManager>(storage);
    std::shared_ptr<OverlayManager> overlay = std::make_shared<OverlayManager>(
        std::make_shared<WindowManager>(panels, screens, mainQueue), notes, application);
    std::unique_ptr<HotkeyManager> manager =
        std::make_unique<HotkeyManager>(overlay, notes, hotKeys, mainQueue);
};

} // namespace sablequill
