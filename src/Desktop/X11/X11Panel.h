// SPDX-License-Identifier: MIT
#pragma once

#include "AlphaAnimator.h"
#include "CompositorWatch.h"
#include "HyprlandPin.h"
#include "Panel.h"
#include "PanelWindow.h"
#include "PressWatch.h"
#include "WindowKeeper.h"

#include <functional>

namespace sablequill {

class CaptureShield;
struct Session;

/// Tells the panels of a program that one of them takes the keyboard.
class KeyboardTurns : public QObject {
    Q_OBJECT

Q_SIGNALS:
    void taken(const QObject* panel);
};

/// A panel as a window of an X server. What differs between kinds of sessions is its keeper's.
class X11Panel final : public QObject, public Panel {
    Q_OBJECT

public:
    /// The server, the shield and the turns outlive the panel.
    X11Panel(const PanelDescription& description, const XServer& server, CaptureShield& shield,
        KeyboardTurns& turns, std::unique_ptr<WindowKeeper> keeper);
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
    void followScreens();
    void followScreenChange();
    void reportMove();
    void applyAlpha(double value);
    void writeAlpha();
    void applyInputShape();
    void takeKeyboard();
    void keepStacking();
    void moveOntoScreen();
    void followFocus(const QWindow* focused);
    void followTurn(const QObject* panel);
    void loseAttention();

    const XServer& server;
    CaptureShield& shield;
    KeyboardTurns& turns;
    const bool canBecomeKey;
    const std::unique_ptr<WindowKeeper> keeper;
    PanelWindow window;
    AlphaAnimator alpha;
    double wantedAlpha = 1;
    bool isAlphaPosted = false;
    CompositorWatch compositor;
    PanelDelegate* delegate = nullptr;
    /// As last reported.
    Rect knownFrame;
    std::function<void(Panel*)> didEndLiveResize;
    std::function<void()> didLoseAttention;
    bool isKey = false;
    WindowLevel level = WindowLevel::normal;
};

class X11PanelFactory final : public PanelFactory {
public:
    /// The server and the shield outlive the factory, the factory its panels.
    X11PanelFactory(const XServer& server, CaptureShield& shield, const Session& session);

    std::unique_ptr<Panel> makePanel(const PanelDescription& description) override;

private:
    std::unique_ptr<WindowKeeper> makeKeeper();

    const XServer& server;
    CaptureShield& shield;
    const bool isWayland;
    const std::optional<QString> hyprlandSocket;
    PressWatch presses;
    KeyboardTurns turns;
    std::unique_ptr<HyprlandPin> pin;
};

} // namespace sablequill
