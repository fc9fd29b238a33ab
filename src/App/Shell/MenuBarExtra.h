// SPDX-License-Identifier: MIT
#pragma once

#include "Panel.h"
#include "StatusItem.h"

#include <QObject>

#include <memory>

namespace sablequill {

class AppState;
class MainQueue;
class MenuBarView;
class PanelCard;
class Screens;
struct Platform;

/// The status item and its popover.
class MenuBarExtra : public QObject {
public:
    /// What the platform refers to, the application state and the item outlive this object.
    MenuBarExtra(AppState& appState, const Platform& platform, StatusItem& statusItem);
    ~MenuBarExtra() override;

    /// Puts the item into the status area and shows the popover once, without taking the keyboard.
    void launch();
    /// Shows the popover with the keyboard in it.
    void open();
    void close();
    bool isOpen() const;

private:
    void addToStatusArea();
    void toggle(const StatusItemAnchor& anchor);
    void loseAttention();
    void present(const StatusItemAnchor& anchor);
    void place();

    AppState& appState;
    Screens& screens;
    StatusItem& statusItem;
    MainQueue& mainQueue;
    std::unique_ptr<Panel> panel;
    /// Owned by the panel.
    PanelCard* card = nullptr;
    MenuBarView* view = nullptr;
    StatusItemAnchor anchor;
    /// A click on the item closes an open popover before the item tells of the click.
    int recentDismissals = 0;
};

} // namespace sablequill
