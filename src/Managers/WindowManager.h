// SPDX-License-Identifier: MIT
#pragma once

#include "AppSettings.h"
#include "OverlayPanel.h"
#include "Panel.h"

#include <QObject>

#include <functional>
#include <memory>

namespace sablequill {

class MainQueue;
class Screens;

/// Owns the overlay's panel: makes it, shows and hides it with a fade, styles it by the settings,
/// keeps it out of captures in Mirk mode, and reports where it is. Without a panel everything but
/// createOverlayPanel() and restoredFrame() does nothing.
class WindowManager : public QObject, public PanelDelegate {
    Q_OBJECT

public:
    /// All three outlive this object.
    WindowManager(PanelFactory& panels, Screens& screens, MainQueue& mainQueue);
    ~WindowManager() override;

    /// Null until createOverlayPanel().
    std::unique_ptr<OverlayPanel> overlayPanel;
    /// Called at once for every move, every step of a resize and the end of a resize by the user.
    std::function<void(const OverlayFrame& frame)> onFrameChanged;

    /// Makes a hidden panel around the content, in place of an earlier one. The panel stays owned
    /// by this object.
    OverlayPanel* createOverlayPanel(std::unique_ptr<PanelContent> content);
    /// The stored frame as it stands, on a screen or not; without one the default size in the
    /// middle of the main screen's visible frame, or at (100, 100) without any screen.
    Rect restoredFrame() const;

    /// Fades the panel in and brings it to the front; the keyboard stays where it is.
    void showOverlay();
    /// Fades the panel out and orders it out, with its opacity restored.
    void hideOverlay();
    /// Decides by what the desktop says of the panel.
    void toggleOverlay();
    bool isOverlayVisible() const;
    /// For information only.
    bool captureExclusionSupported() const;

    /// Keeps a copy and restyles the panel. Leaves it at the floating level, whatever the settings
    /// say.
    void applySettings(const AppSettings& settings);
    /// Floating, on every workspace, and in or out of captures by the settings.
    void applyMirkMode(Panel& window);
    /// Reports the frame at the end of each resize by the user, and excludes the panel again in
    /// Mirk mode.
    void observeResize(OverlayPanel& panel);
    void persistFrame(const Panel& window);

    void windowDidMove(Panel* window) override;
    void windowDidResize(Panel* window) override;

Q_SIGNALS:
    /// Just before onFrameChanged.
    void frameChanged();

private:
    void reassertMirkMode();

    PanelFactory& panels;
    Screens& screens;
    MainQueue& mainQueue;
    AppSettings settings;
    /// The observer of the last observeResize(); it ends with this object.
    std::unique_ptr<QObject> resizeObserver;
};

} // namespace sablequill
