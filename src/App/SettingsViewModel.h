// SPDX-License-Identifier: MIT
#pragma once

#include "AppSettings.h"
#include "HotkeyAction.h"
#include "KeyboardShortcutBinding.h"
#include "Published.h"

#include <functional>
#include <map>
#include <memory>

namespace sablequill {

class StorageManager;

/// The settings that the Settings window edits: taken from the storage once, checked by nobody but
/// the window's controls, and saved whenever the window says so. Knows only its own edits
/// afterwards.
class SettingsViewModel : public ObservableObject {
public:
    explicit SettingsViewModel(std::shared_ptr<StorageManager> storage);

    Published<double> opacity;
    /// Points.
    Published<double> fontSize;
    Published<bool> alwaysOnTop;
    Published<bool> launchAtStartup;
    Published<bool> mirkModeEnabled;
    /// Every action has its binding here.
    Published<std::map<HotkeyAction, KeyboardShortcutBinding>> shortcuts;

    /// Called with what was saved after each persist(), also when the write failed; may be empty.
    std::function<void(const AppSettings& settings)> onSettingsChanged;

    /// Saves the settings with the values of this object in them. What this object does not hold
    /// stays as the storage has it; shortcuts under unknown names go.
    void persist();
    /// Gives every action its default binding and persists.
    void resetShortcuts();

private:
    std::shared_ptr<StorageManager> storage;
};

} // namespace sablequill
