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
/// is shown. Closing the guide without finishing it clears the flag for this run and records
/// nothing.
class OnboardingSheet : public QObject {
public:
    /// What the platform refers to, and the application state, outlive this object.
    OnboardingSheet(AppState& appState, const Platform& platform);
    ~OnboardingSheet() override;

    bool isShown() const { return panel && panel->isVisible(); }

private:
    void update();
    void present();
    void close();
    Rect frame() const;

    AppState& appState;
    PanelFactory& panels;
    Screens& screens;
    std::unique_ptr<Panel> panel;
};

} // namespace sablequill
