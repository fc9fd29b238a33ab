// SPDX-License-Identifier: MIT
#include "OverlayManager.h"

#include "Application.h"
#include "OverlayEnvironment.h"
#include "StorageManager.h"
#include "WindowManager.h"

#include <utility>

namespace sablequill {

OverlayManager::OverlayManager(std::shared_ptr<WindowManager> windowManager,
    std::shared_ptr<NotesManager> notesManager, Application& application)
    : windowManager(std::move(windowManager))
    , notesManager(std::move(notesManager))
    , application(application)
{
}

void OverlayManager::ensurePanelCreated(OverlayEnvironment& appState)
{
    setupOverlay(appState);
}

void OverlayManager::setupOverlay(OverlayEnvironment& appState)
{
    if (panelCreated)
        return;
    // Set first: the content asks for the panel again while it is made.
    panelCreated = true;
    auto content = appState.makeOverlayContent();
    windowManager->onFrameChanged = [storage = appState.overlayStorage()](
                                        const OverlayFrame& frame) {
        storage->updateOverlayFrame(frame);
    };
    windowManager->createOverlayPanel(std::move(content));
}

void OverlayManager::setupOverlayIfNeeded() { }

void OverlayManager::showOverlay()
{
    setupOverlayIfNeeded();
    windowManager->showOverlay();
    isVisible = true;
}

void OverlayManager::hideOverlay()
{
    windowManager->hideOverlay();
    isVisible = false;
}

void OverlayManager::toggleOverlay()
{
    if (isVisible)
        hideOverlay();
    else
        showOverlay();
}

void OverlayManager::quickOpen()
{
    showOverlay();
    isEditing = true;
    application.activateIgnoringOtherApps(true);
    if (windowManager->overlayPanel)
        windowManager->overlayPanel->panel().makeKey();
}

void OverlayManager::refreshContent() { }

} // namespace sablequill
