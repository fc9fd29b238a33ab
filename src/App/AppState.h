// SPDX-License-Identifier: MIT
#pragma once

#include "AppSettings.h"
#include "OverlayEnvironment.h"
#include "Platform.h"
#include "Published.h"

#include <functional>
#include <memory>

namespace sablequill {

class HotkeyManager;
class MirkProtection;
class NotesManager;
class OverlayManager;
class SettingsViewModel;
class StorageManager;
class WindowManager;

/// Makes the overlay's view; called once.
using OverlayContentFactory =
    std::function<std::unique_ptr<PanelContent>(class AppState& appState)>;

/// Creates every manager once, in dependency order, and wires them together.
class AppState : public ObservableObject, public OverlayEnvironment {
public:
    AppState(const Platform& platform, OverlayContentFactory overlayContentFactory);

    const std::shared_ptr<StorageManager> storageManager;
    const std::shared_ptr<WindowManager> windowManager;
    const std::shared_ptr<NotesManager> notesManager;
    const std::shared_ptr<OverlayManager> overlayManager;
    const std::shared_ptr<SettingsViewModel> settingsViewModel;
    const std::shared_ptr<HotkeyManager> hotkeyManager;
    /// The desktop's, which outlives this object.
    MirkProtection& mirkProtection;

    /// The first-run guide is to be shown.
    Published<bool> showOnboarding{this, false};
    /// The settings last applied.
    Published<AppSettings> currentSettings{this};

    /// Creates the overlay's panel and shows it, on the first call only.
    void bootstrap();
    /// Records that the guide was finished and hides it.
    void completeOnboarding();

    std::shared_ptr<StorageManager> overlayStorage() override;
    std::unique_ptr<PanelContent> makeOverlayContent() override;

private:
    void applySettings(const AppSettings& settings);

    OverlayContentFactory overlayContentFactory;
    bool bootstrapped = false;
};

} // namespace sablequill
