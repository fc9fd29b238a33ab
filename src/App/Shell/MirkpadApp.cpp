// SPDX-License-Identifier: MIT
#include "MirkpadApp.h"

#include "ColorScheme.h"
#include "Icons.h"
#include "Ink.h"
#include "MirkDescription.h"
#include "MirkProtection.h"
#include "OverlayView.h"
#include "Refresh.h"
#include "SettingsView.h"

#include <QApplication>
#include <QToolTip>

namespace sablequill {

MirkpadApp::MirkpadApp(const Platform& platform, StatusItem& statusItem, ColorScheme& colorScheme,
    MirkProtection& mirkProtection)
    : colorScheme(colorScheme)
    , mirkProtection(mirkProtection)
    , appState(platform, [this](AppState& state) { return makeOverlayView(state); })
    , menuBarExtra(appState, platform, statusItem)
    , onboardingSheet(appState, platform)
{
    auto* following = new Refresh(this, [this] { followColorScheme(); });
    following->observe(&colorScheme);
    followColorScheme();
    auto* describing = new Refresh(this, [this] { describeMirkMode(); });
    describing->observe(&mirkProtection);
}

MirkpadApp::~MirkpadApp() = default;

void MirkpadApp::launch()
{
    // Before the first window: the popover shows notes too.
    mirkProtection.setWanted(appState.currentSettings->mirkModeEnabled);
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
        describeMirkMode();
    }
    settingsWindow->setWindowState(settingsWindow->windowState() & ~Qt::WindowMinimized);
    settingsWindow->show();
    settingsWindow->raise();
    settingsWindow->activateWindow();
}

std::unique_ptr<PanelContent> MirkpadApp::makeOverlayView(AppState& state)
{
    auto view = std::make_unique<OverlayView>(state);
    overlayView = view.get();
    describeMirkMode();
    return view;
}

void MirkpadApp::describeMirkMode()
{
    const QString description = mirkDescription(mirkProtection.effect);
    if (overlayView)
        overlayView->setMirkDescription(description);
    if (settingsWindow)
        settingsWindow->setMirkDescription(description);
}

void MirkpadApp::followColorScheme()
{
    const QPalette palette =
        paletteFor(colorScheme.prefersDark ? Surroundings::dark : Surroundings::light);
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

} // namespace sablequill
