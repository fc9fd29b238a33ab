// SPDX-License-Identifier: MIT
#include "OnboardingSheet.h"

#include "AppState.h"
#include "OnboardingView.h"
#include "OverlayManager.h"
#include "OverlayPanel.h"
#include "PanelCard.h"
#include "Platform.h"
#include "Refresh.h"
#include "Screens.h"
#include "WindowManager.h"
#include "WindowPlacement.h"

#include <utility>

namespace sablequill {

OnboardingSheet::OnboardingSheet(AppState& appState, const Platform& platform)
    : appState(appState)
    , panels(platform.panels)
    , screens(platform.screens)
{
    auto* refresh = new Refresh(this, [this] { update(); });
    refresh->observe(&appState);
    refresh->observe(appState.overlayManager.get());
    connect(
        appState.windowManager.get(), &WindowManager::frameChanged, this, &OnboardingSheet::follow);
}

OnboardingSheet::~OnboardingSheet() = default;

void OnboardingSheet::update()
{
    const bool isWanted = appState.showOnboarding && appState.windowManager->overlayPanel;
    // The guide goes away and comes back with the overlay that it lies over, and stays above it.
    const bool isOverlayShown = appState.overlayManager->isVisible;
    if (!isWanted)
        close();
    else if (isOverlayShown && !panel)
        present();
    else if (isOverlayShown)
        bringBack();
    else if (panel)
        panel->orderOut();
}

void OnboardingSheet::present()
{
    followed = overlayFrame();
    auto* view = new OnboardingView(appState);
    connect(view, &OnboardingView::dismissed, this, [this] { appState.showOnboarding = false; });
    panel = panels.makePanel({.contentRect = frame(),
        .styleMask = StyleMask::borderless | StyleMask::nonactivatingPanel,
        .canBecomeKey = true,
        .role = QStringLiteral("guide")});
    panel->setAttributes({.isFloatingPanel = true,
        .titleVisibility = TitleVisibility::hidden,
        .titlebarAppearsTransparent = true,
        .isMovableByWindowBackground = true,
        .backgroundColor = BackgroundColor::clear,
        .isOpaque = false,
        .hasShadow = false});
    panel->setContent(std::make_unique<PanelCard>(view));
    panel->setLevel(WindowLevel::floating);
    panel->orderFrontRegardless();
    // Without a press nothing else could give the keyboard to it.
    panel->makeKey();
}

void OnboardingSheet::bringBack()
{
    if (!panel->isVisible())
        panel->setFrame(frame());
    panel->orderFrontRegardless();
}

void OnboardingSheet::close()
{
    if (!panel)
        return;
    panel->orderOut();
    panel.reset();
}

void OnboardingSheet::follow()
{
    if (!panel)
        return;
    const Rect now = overlayFrame();
    const Rect before = std::exchange(followed, now);
    if (now == before)
        return;
    Rect guide = panel->frame();
    guide.x += now.midX() - before.midX();
    guide.y += now.midY() - before.midY();
    panel->setFrame(WindowPlacement::movedInto(guide, area()));
}

Rect OnboardingSheet::overlayFrame() const
{
    return appState.windowManager->overlayPanel->panel().frame();
}

Rect OnboardingSheet::frame() const
{
    constexpr double width = 480;
    constexpr double height = 420;
    return WindowPlacement::centered(width, height, overlayFrame(), area());
}

Rect OnboardingSheet::area() const
{
    const Rect overlay = overlayFrame();
    const auto screen = screens.screenOf(overlay);
    return screen ? screen->visibleFrame : overlay;
}

} // namespace sablequill
