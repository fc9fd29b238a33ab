// SPDX-License-Identifier: MIT
#pragma once

#include "AlphaAnimator.h"
#include "CompositorWatch.h"
#include "FocusKeeper.h"
#include "Panel.h"
#include "PanelWindow.h"
#include "StackingKeeper.h"
#include "XServer.h"

#include <functional>

namespace sablequill {

/// A panel in an X11 session: an override-redirect window, the only kind that every window manager
/// leaves above a focused full-screen window. What a window manager would do for it, it does
/// itself.
class X11Panel final : public QObject, public Panel {
    Q_OBJECT

public:
    /// The server and the watch outlive the panel.
    X11Panel(const PanelDescription& description, const XServer& server, PressWatch& presses);
    ~X11Panel() override;

    void setAttributes(const PanelAttributes& attributes) override;
    void setMovableByWindowBackground(bool isMovable) override;
    void setContent(std::unique_ptr<PanelContent> content) override;
    void setDelegate(PanelDelegate* delegate) override;
    void setDidEndLiveResize(std::function<void(Panel* window)> observer) override;
    void setDidLoseAttention(std::function<void()> observer) override;
    void setLevel(WindowLevel level) override;
    void setCollectionBehavior(unsigned behavior) override;
    void setSharingType(SharingType type) override;
    void setAlpha(double alpha) override;
    void animateAlpha(double alpha, AlphaAnimation animation) override;
    void orderFrontRegardless() override;
    void orderOut() override;
    void makeKey() override;
    bool isVisible() const override;
    Rect frame() const override;
    void setFrame(const Rect& frame) override;

private:
    void connectWindow();
    void applyAlpha(double value);
    void writeAlpha();
    void applyInputShape();
    void takeKeyboard();
    void keepStacking();
    void moveOntoScreen();
    void followFocus(const QWindow* focused);
    void loseAttention();

    const XServer& server;
    const bool canBecomeKey;
    PanelWindow window;
    AlphaAnimator alpha;
    double wantedAlpha = 1;
    bool isAlphaPosted = false;
    CompositorWatch compositor;
    StackingKeeper stacking;
    FocusKeeper focus;
    PanelDelegate* delegate = nullptr;
    std::function<void(Panel*)> didEndLiveResize;
    std::function<void()> didLoseAttention;
    bool isKey = false;
    WindowLevel level = WindowLevel::normal;
};

class X11PanelFactory final : public PanelFactory {
public:
    /// The server outlives the factory, the factory its panels.
    explicit X11PanelFactory(const XServer& server);

    std::unique_ptr<Panel> makePanel(const PanelDescription& description) override;

private:
    const XServer& server;
    PressWatch presses;
};

} // namespace sablequill
