// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCenter.h"
#include "HotkeyAction.h"

#include <QObject>
#include <QPointer>

#include <map>
#include <memory>
#include <optional>

namespace sablequill {

class MainQueue;
class NotesManager;
class OverlayManager;
class StorageManager;

/// Makes the four actions work from any application: registers their hot keys and hands each press
/// to the overlay or the notes. Reports no failure: a combination that another program owns stays
/// silent.
///
/// Destroying it unregisters nothing, and the center keeps its address: it lives as long as presses
/// may arrive.
class HotkeyManager : public QObject {
public:
    /// Holds both managers weakly; a press whose manager is gone does nothing. The center and the
    /// queue outlive this object.
    HotkeyManager(const std::shared_ptr<OverlayManager>& overlayManager,
        const std::shared_ptr<NotesManager>& notesManager, HotKeyCenter& hotKeyCenter,
        MainQueue& mainQueue);

    /// Where the bindings are read and saved; without it the defaults hold and nothing is saved.
    void bind(std::shared_ptr<StorageManager> storage);
    /// Replaces all four hot keys by the stored bindings.
    void registerHotkeys();
    /// Replaces one action's hot key and saves its binding.
    void updateShortcut(HotkeyAction action, const KeyboardShortcutBinding& binding);

    /// Who holds the four hot keys.
    HotKeyHolder& holder() { return hotKeyCenter.holder(); }

    using HotkeyRefs = std::map<HotkeyAction, std::optional<HotKeyRef>>;
    /// What the last registration of each action returned; an action whose registration failed is
    /// there without a reference.
    const HotkeyRefs& registeredHotkeys() const { return hotkeyRefs; }
    /// The newest; older ones stay installed and are never reached.
    std::optional<EventHandlerRef> installedEventHandler() const { return eventHandler; }

private:
    static std::int32_t handleHotKeyEvent(const HotKeyEvent& event, void* userData);

    void unregisterHotkeys();
    void installEventHandler();
    void registerHotkey(HotkeyAction action, const KeyboardShortcutBinding& binding);
    void unregister(HotkeyAction action);
    void handle(HotkeyAction action);

    HotkeyRefs hotkeyRefs;
    std::optional<EventHandlerRef> eventHandler;
    QPointer<OverlayManager> overlayManager;
    QPointer<NotesManager> notesManager;
    std::shared_ptr<StorageManager> storage;
    HotKeyCenter& hotKeyCenter;
    MainQueue& mainQueue;
};

} // namespace sablequill
