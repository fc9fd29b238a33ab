// SPDX-License-Identifier: MIT
#include "HotkeyManager.h"

#include "MainQueue.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "StorageManager.h"

#include <utility>

namespace sablequill {

namespace {

constexpr std::uint32_t hotKeySignature = fourCharacterCode("MKPD");

std::uint32_t numberOf(HotkeyAction action)
{
    return static_cast<std::uint32_t>(hotkeyID(action));
}

std::optional<HotkeyAction> actionNumbered(std::uint32_t number)
{
    for (const HotkeyAction action : allHotkeyActions) {
        if (numberOf(action) == number)
            return action;
    }
    return std::nullopt;
}

KeyboardShortcutBinding bindingOf(HotkeyAction action, const AppSettings& settings)
{
    const auto stored = settings.shortcuts.find(rawValue(action));
    return stored == settings.shortcuts.end() ? defaultShortcut(action) : stored->second;
}

} // namespace

HotkeyManager::HotkeyManager(const std::shared_ptr<OverlayManager>& overlayManager,
    const std::shared_ptr<NotesManager>& notesManager, HotKeyCenter& hotKeyCenter,
    MainQueue& mainQueue)
    : overlayManager(overlayManager.get())
    , notesManager(notesManager.get())
    , hotKeyCenter(hotKeyCenter)
    , mainQueue(mainQueue)
{
}

void HotkeyManager::bind(std::shared_ptr<StorageManager> storage)
{
    this->storage = std::move(storage);
}

void HotkeyManager::registerHotkeys()
{
    unregisterHotkeys();
    installEventHandler();
    const AppSettings settings = storage ? storage->settings : AppSettings{};
    for (const HotkeyAction action : allHotkeyActions)
        registerHotkey(action, bindingOf(action, settings));
}

void HotkeyManager::unregisterHotkeys()
{
    for (const HotkeyAction action : allHotkeyActions)
        unregister(action);
}

void HotkeyManager::installEventHandler()
{
    // An older handler stays: the newest answers every press of ours, so the older hears of none.
    eventHandler = hotKeyCenter.installEventHandler(&handleHotKeyEvent, hotKeyPressed, this);
}

void HotkeyManager::registerHotkey(HotkeyAction action, const KeyboardShortcutBinding& binding)
{
    hotkeyRefs[action] = hotKeyCenter.registerHotKey(
        binding.keyCode, binding.modifiers.carbonFlags(), {hotKeySignature, numberOf(action)});
}

void HotkeyManager::unregister(HotkeyAction action)
{
    const auto entry = hotkeyRefs.find(action);
    if (entry == hotkeyRefs.end())
        return;
    if (entry->second)
        hotKeyCenter.unregisterHotKey(*entry->second);
    hotkeyRefs.erase(entry);
}

void HotkeyManager::updateShortcut(HotkeyAction action, const KeyboardShortcutBinding& binding)
{
    unregister(action);
    registerHotkey(action, binding);
    if (!storage)
        return;
    AppSettings settings = storage->settings;
    settings.shortcuts[rawValue(action)] = binding;
    storage->saveSettings(settings);
}

std::int32_t HotkeyManager::handleHotKeyEvent(const HotKeyEvent& event, void* userData)
{
    if (!userData)
        return HotKeyStatus::eventNotHandled;
    const auto action = actionNumbered(event.hotKeyID.id);
    if (!action)
        return HotKeyStatus::eventNotHandled;
    const QPointer manager(static_cast<HotkeyManager*>(userData));
    manager->mainQueue.async([manager, action = *action] {
        if (manager)
            manager->handle(action);
    });
    return HotKeyStatus::noError;
}

void HotkeyManager::handle(HotkeyAction action)
{
    switch (action) {
    case HotkeyAction::toggleOverlay:
        if (overlayManager)
            overlayManager->toggleOverlay();
        break;
    case HotkeyAction::quickOpen:
        if (overlayManager)
            overlayManager->quickOpen();
        break;
    case HotkeyAction::nextNote:
        if (notesManager)
            notesManager->selectNext();
        break;
    case HotkeyAction::previousNote:
        if (notesManager)
            notesManager->selectPrevious();
        break;
    }
}

} // namespace sablequill
