// SPDX-License-Identifier: MIT
#pragma once

#include "Panel.h"

#include <QObject>

#include <memory>

namespace sablequill {

class AppState;
class Screens;
struct Platform;

/// Shows the first-run guide over the overlay while the application state says so and the overlay
/// is shown. The guide moves along with the overlay, and inside the screen, from where the user put
/// it; it comes back over the middle of the overlay. Closing the guide without finishing it clears
/// the flag for this run and records nothing.
class OnboardingSheet : public QObject {
public:
    /// What the platform refers to, and the application state, outlive this object.
    OnboardingSheet(AppState& appState, const Platform& platform);
    ~OnboardingSheet() override;

    bool isShown() const { return panel && panel->isVisible(); }

private:
    void update();
    void present();
    void bringBack();
    void close();
    void follow();
    Rect overlayFrame() const;
    /// Where the guide belongs at first.
    Rect frame() const;
    /// Where the overlay's screen ends.
    Rect area() const;

    AppState& appState;
    PanelFactory& panels;
    Screens& screens;
    std::unique_ptr<Panel> panel;
    /// Where the overlay was when the guide was last placed.
    Rect followed;
};

} // namespace sablequill
