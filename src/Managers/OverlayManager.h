// SPDX-License-Identifier: MIT
#pragma once

#include "Published.h"

#include <memory>

namespace sablequill {

class Application;
class NotesManager;
class OverlayEnvironment;
class WindowManager;

/// The overlay as the rest of the program sees it: whether it is shown, whether it is being edited,
/// and the four verbs that menus, hot keys and its own buttons use.
class OverlayManager : public ObservableObject {
public:
    OverlayManager(std::shared_ptr<WindowManager> windowManager,
        std::shared_ptr<NotesManager> notesManager, Application& application);

    /// True from the start, before any panel exists: the first toggle reads this flag.
    Published<bool> isVisible{this, true};
    /// True while the overlay shows the editor. Hiding does not clear it.
    Published<bool> isEditing{this, false};

    const std::shared_ptr<WindowManager> windowManager;
    const std::shared_ptr<NotesManager> notesManager;

    /// Builds the panel with its content, once; later calls do nothing.
    void ensurePanelCreated(OverlayEnvironment& appState);

    void showOverlay();
    void hideOverlay();
    /// Decides by `isVisible`, not by the window.
    void toggleOverlay();
    /// Shows the overlay in editing mode with the keyboard in it.
    void quickOpen();
    /// Does nothing: the content observes what it shows.
    void refreshContent();

private:
    void setupOverlay(OverlayEnvironment& appState);
    void setupOverlayIfNeeded();

    Application& application;
    bool panelCreated = false;
};

} // namespace sablequill
