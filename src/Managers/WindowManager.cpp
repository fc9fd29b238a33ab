// SPDX-License-Identifier: MIT
#include "WindowManager.h"

#include "CaptureExclusion.h"
#include "Constants.h"
#include "MainQueue.h"
#include "Screens.h"

#include <QPointer>

#include <utility>

namespace sablequill {

namespace {

constexpr unsigned overlayStyleMask =
    StyleMask::borderless | StyleMask::nonactivatingPanel | StyleMask::resizable;
constexpr unsigned overlayCollectionBehavior = CollectionBehavior::canJoinAllSpaces
    | CollectionBehavior::stationary | CollectionBehavior::ignoresCycle
    | CollectionBehavior::fullScreenAuxiliary;

/// Seconds after showing at which the window server has placed the panel.
constexpr double mirkReassertionDelay = 0.1;

PanelAttributes overlayAttributes()
{
    return {
        .isFloatingPanel = true,
        .titleVisibility = TitleVisibility::hidden,
        .titlebarAppearsTransparent = true,
        .isMovableByWindowBackground = true,
        .backgroundColor = BackgroundColor::clear,
        .isOpaque = false,
        .hasShadow = false,
        .minWidth = Constants::minOverlayWidth,
        .minHeight = Constants::minOverlayHeight,
        .appearance = Appearance::darkAqua,
    };
}

} // namespace

WindowManager::WindowManager(PanelFactory& panels, Screens& screens, MainQueue& mainQueue)
    : panels(panels)
    , screens(screens)
    , mainQueue(mainQueue)
{
}

WindowManager::~WindowManager()
{
    if (!overlayPanel)
        return;
    overlayPanel->panel().setDelegate(nullptr);
    // Now, while all that its callbacks read is still there.
    overlayPanel.reset();
}

OverlayPanel* WindowManager::createOverlayPanel(std::unique_ptr<PanelContent> content)
{
    auto made = std::make_unique<OverlayPanel>(
        panels, restoredFrame(), overlayStyleMask, BackingStore::buffered, false);
    Panel& panel = made->panel();
    panel.setAttributes(overlayAttributes());
    panel.setDelegate(this);
    panel.setContent(std::move(content));
    // Mirk mode waits for the first show: a window is excluded once it is on screen.
    made->applySettings(settings);
    overlayPanel = std::move(made);
    observeResize(*overlayPanel);
    return overlayPanel.get();
}

Rect WindowManager::restoredFrame() const
{
    if (settings.overlayFrame) {
        const OverlayFrame& frame = *settings.overlayFrame;
        return {frame.x, frame.y, frame.width, frame.height};
    }
    constexpr double width = Constants::defaultOverlayWidth;
    constexpr double height = Constants::defaultOverlayHeight;
    if (const auto visible = screens.mainVisibleFrame())
        return {visible->midX() - width / 2, visible->midY() - height / 2, width, height};
    return {100, 100, width, height};
}

void WindowManager::showOverlay()
{
    if (!overlayPanel)
        return;
    Panel& panel = overlayPanel->panel();
    // The alpha is not cleared first: hiding restored it, so that the panel is there at once.
    panel.animateAlpha(
        settings.opacity, {Constants::animationDuration, TimingFunction::easeInEaseOut});
    panel.orderFrontRegardless();
    if (!settings.mirkModeEnabled)
        return;
    applyMirkMode(panel);
    mainQueue.after(mirkReassertionDelay, [manager = QPointer(this)] {
        if (manager)
            manager->reassertMirkMode();
    });
}

void WindowManager::reassertMirkMode()
{
    if (isOverlayVisible() && settings.mirkModeEnabled)
        CaptureExclusion::apply(overlayPanel->panel());
}

void WindowManager::hideOverlay()
{
    if (!overlayPanel)
        return;
    Panel& panel = overlayPanel->panel();
    // Both are there when it runs: the panel ends its animations, and this object its panel.
    const auto restoreAndOrderOut = [this, &panel] {
        panel.setAlpha(settings.opacity);
        panel.orderOut();
    };
    panel.animateAlpha(
        0, {Constants::animationDuration, TimingFunction::easeInEaseOut, restoreAndOrderOut});
}

void WindowManager::toggleOverlay()
{
    if (isOverlayVisible())
        hideOverlay();
    else
        showOverlay();
}

bool WindowManager::isOverlayVisible() const
{
    return overlayPanel && overlayPanel->panel().isVisible();
}

bool WindowManager::captureExclusionSupported() const
{
    return CaptureExclusion::isSupported();
}

void WindowManager::applySettings(const AppSettings& settings)
{
    this->settings = settings;
    if (!overlayPanel)
        return;
    overlayPanel->applySettings(settings);
    applyMirkMode(overlayPanel->panel());
}

void WindowManager::applyMirkMode(Panel& window)
{
    window.setLevel(WindowLevel::floating);
    window.setCollectionBehavior(overlayCollectionBehavior);
    if (settings.mirkModeEnabled)
        CaptureExclusion::apply(window);
    else
        CaptureExclusion::remove(window);
}

void WindowManager::observeResize(OverlayPanel& panel)
{
    resizeObserver = std::make_unique<QObject>();
    panel.panel().setDidEndLiveResize(
        [this, observer = QPointer(resizeObserver.get())](Panel* window) {
            if (!window)
                return;
            if (observer)
                persistFrame(*window);
            // Whoever heard of the frame may have ended the manager.
            if (observer && settings.mirkModeEnabled)
                CaptureExclusion::apply(*window);
        });
}

void WindowManager::persistFrame(const Panel& window)
{
    const Rect frame = window.frame();
    Q_EMIT frameChanged();
    if (onFrameChanged)
        onFrameChanged({frame.x, frame.y, frame.width, frame.height});
}

void WindowManager::windowDidMove(Panel* window)
{
    if (window)
        persistFrame(*window);
}

void WindowManager::windowDidResize(Panel* window)
{
    if (!window)
        return;
    if (settings.mirkModeEnabled)
        CaptureExclusion::apply(*window);
    persistFrame(*window);
}

} // namespace sablequill
