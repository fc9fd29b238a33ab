// SPDX-License-Identifier: MIT
#include "SettingsViewModel.h"

#include "StorageManager.h"

#include <utility>

namespace sablequill {
namespace {

std::map<HotkeyAction, KeyboardShortcutBinding> shortcutsByAction(const AppSettings& settings)
{
    std::map<HotkeyAction, KeyboardShortcutBinding> shortcuts;
    for (const HotkeyAction action : allHotkeyActions) {
        const auto stored = settings.shortcuts.find(rawValue(action));
        shortcuts.emplace(
            action, stored == settings.shortcuts.end() ? defaultShortcut(action) : stored->second);
    }
    return shortcuts;
}

} // namespace

SettingsViewModel::SettingsViewModel(std::shared_ptr<StorageManager> storage)
    : opacity(this, storage->settings.opacity)
    , fontSize(this, storage->settings.fontSize)
    , alwaysOnTop(this, storage->settings.alwaysOnTop)
    , launchAtStartup(this, storage->settings.launchAtStartup)
    , mirkModeEnabled(this, storage->settings.mirkModeEnabled)
    , shortcuts(this, shortcutsByAction(storage->settings))
    , storage(std::move(storage))
{
}

void SettingsViewModel::persist()
{
    AppSettings copy = storage->settings;
    copy.opacity = opacity;
    copy.fontSize = fontSize;
    copy.alwaysOnTop = alwaysOnTop;
    copy.launchAtStartup = launchAtStartup;
    copy.mirkModeEnabled = mirkModeEnabled;
    copy.shortcuts.clear();
    for (const auto& [action, binding] : shortcuts.get())
        copy.shortcuts.emplace(rawValue(action), binding);
    storage->saveSettings(copy);
    if (onSettingsChanged)
        onSettingsChanged(copy);
}

void SettingsViewModel::resetShortcuts()
{
    std::map<HotkeyAction, KeyboardShortcutBinding> defaults;
    for (const HotkeyAction action : allHotkeyActions)
        defaults.emplace(action, defaultShortcut(action));
    shortcuts = std::move(defaults);
    persist();
}

} // namespace sablequill
