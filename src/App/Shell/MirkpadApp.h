// SPDX-License-Identifier: MIT
#pragma once

#include "AppDelegate.h"
#include "AppState.h"
#include "MenuBarExtra.h"
#include "OnboardingSheet.h"
#include "StatusItem.h"

#include <QObject>

#include <memory>

namespace sablequill {

class ColorScheme;
class SettingsView;

/// The application: holds the one application state for the life of the process, and its scenes:
/// the status item with its popover, the Settings window, and the guide.
class MirkpadApp : public QObject {
public:
    /// What the platform refers to and the other two outlive the application.
    MirkpadApp(const Platform& platform, StatusItem& statusItem, ColorScheme& colorScheme);
    ~MirkpadApp() override;

    /// Begins the run; the toolkit's event loop is started by the caller afterwards.
    void launch();
    /// Shows the popover with the keyboard in it, where the user last found it.
    void openPopover();
    /// Opens the Settings window or brings it forward.
    void showSettingsWindow();
    /// For an end of the process that does not destroy this object.
    void writeUnsaved();

private:
    void followColorScheme();

    ColorScheme& colorScheme;
    AppDelegate delegate;
    AppState appState;
    MenuBarExtra menuBarExtra;
    OnboardingSheet onboardingSheet;
    std::unique_ptr<SettingsView> settingsWindow;
};

} // namespace sablequill
