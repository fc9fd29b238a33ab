// SPDX-License-Identifier: MIT
#include "MirkpadApp.h"

#include "ColorScheme.h"
#include "Icons.h"
#include "Ink.h"
#include "MirkProtection.h"
#include "OverlayView.h"
#include "Refresh.h"
#include "SettingsView.h"
#include "StorageManager.h"

#include <QApplication>
#include <QToolTip>

namespace sablequill {

MirkpadApp::MirkpadApp(const Platform& platform, StatusItem& statusItem, ColorScheme& colorScheme)
    : colorScheme(colorScheme)
    , appState(platform, [](AppState& state) { return std::make_unique<OverlayView>(state); })
    , menuBarExtra(appState, platform, statusItem)
    , onboardingSheet(appState, platform)
{
    auto* following = new Refresh(this, [this] { followColorScheme(); });
    following->observe(&colorScheme);
    followColorScheme();
}

MirkpadApp::~MirkpadApp() = default;

void MirkpadApp::launch()
{
    // Before the first window: the popover shows notes too.
    appState.mirkProtection.setWanted(appState.currentSettings->mirkModeEnabled);
    delegate.applicationDidFinishLaunching();
    menuBarExtra.launch();
}

void MirkpadApp::openPopover()
{
    menuBarExtra.open();
}

void MirkpadApp::showSettingsWindow()
{
    if (!settingsWindow) {
        settingsWindow = std::make_unique<SettingsView>(appState);
        settingsWindow->setWindowTitle(tr("Sablequill Settings"));
        settingsWindow->setWindowIcon(applicationIcon());
    }
    settingsWindow->setWindowState(settingsWindow->windowState() & ~Qt::WindowMinimized);
    settingsWindow->show();
    settingsWindow->raise();
    settingsWindow->activateWindow();
}

void MirkpadApp::writeUnsaved()
{
    appState.storageManager->writeUnsaved();
}

void MirkpadApp::followColorScheme()
{
    const QPalette palette =
        paletteFor(colorScheme.prefersDark ? Surroundings::dark : Surroundings::light);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

} // namespace sablequill
