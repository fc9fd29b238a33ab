// SPDX-License-Identifier: MIT
#include "AppState.h"

#include "HotkeyManager.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "SettingsViewModel.h"
#include "StorageManager.h"
#include "WindowManager.h"

#include <QPointer>

#include <utility>

namespace sablequill {

AppState::AppState(const Platform& platform, OverlayContentFactory overlayContentFactory)
    : storageManager(std::make_shared<StorageManager>(platform.loginItem))
    , windowManager(
          std::make_shared<WindowManager>(platform.panels, platform.screens, platform.mainQueue))
    , notesManager(std::make_shared<NotesManager>(storageManager))
    , overlayManager(
          std::make_shared<OverlayManager>(windowManager, notesManager, platform.application))
    , settingsViewModel(std::make_shared<SettingsViewModel>(storageManager))
    , hotkeyManager(std::make_shared<HotkeyManager>(
          overlayManager, notesManager, platform.hotKeys, platform.mainQueue))
    , mirkProtection(platform.mirkProtection)
    , overlayContentFactory(std::move(overlayContentFactory))
{
    settingsViewModel->onSettingsChanged = [appState = QPointer(this)](const auto& settings) {
        if (appState)
            appState->applySettings(settings);
    };
    hotkeyManager->bind(storageManager);
    currentSettings = storageManager->settings;
    applySettings(currentSettings);
    hotkeyManager->registerHotkeys();
    showOnboarding = !storageManager->settings.hasCompletedOnboarding;
}

void AppState::applySettings(const AppSettings& settings)
{
    currentSettings = settings;
    windowManager->applySettings(settings);
    overlayManager->refreshContent();
}

void AppState::bootstrap()
{
    if (bootstrapped)
        return;
    bootstrapped = true;
    overlayManager->ensurePanelCreated(*this);
    overlayManager->showOverlay();
}

void AppState::completeOnboarding()
{
    AppSettings settings = storageManager->settings;
    settings.hasCompletedOnboarding = true;
    storageManager->saveSettings(settings);
    showOnboarding = false;
}

std::shared_ptr<StorageManager> AppState::overlayStorage()
{
    return storageManager;
}

std::unique_ptr<PanelContent> AppState::makeOverlayContent()
{
    return overlayContentFactory(*this);
}

} // namespace sablequill
