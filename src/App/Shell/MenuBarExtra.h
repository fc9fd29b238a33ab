// SPDX-License-Identifier: MIT
#pragma once

#include "MenuBarView.h"
#include "Panel.h"
#include "StatusItem.h"

#include <QObject>

#include <memory>
#include <vector>

namespace sablequill {

class AppState;
class MainQueue;
class PanelCard;
class Screens;
struct Platform;

/// The status item and its popover.
class MenuBarExtra : public QObject {
public:
    /// What the platform refers to, the application state and the item outlive this object.
    MenuBarExtra(AppState& appState, const Platform& platform, StatusItem& statusItem);
    ~MenuBarExtra() override;

    /// Shows the popover once, without the keyboard. Its first appearance begins with the overlay;
    /// its window and the item in the status area come a moment later.
    void launch();
    /// Shows the popover with the keyboard in it.
    void open();
    void close();
    bool isOpen() const;

private:
    void follow();
    void addToStatusArea();
    void makePopover();
    void toggle(const StatusItemAnchor& anchor);
    void loseAttention();
    void present(const StatusItemAnchor& anchor);
    void place();

    AppState& appState;
    PanelFactory& panels;
    Screens& screens;
    StatusItem& statusItem;
    MainQueue& mainQueue;
    const std::vector<MenuAction> actions;
    /// The popover's; none before it is first shown.
    std::unique_ptr<Panel> panel;
    /// Owned by the panel.
    PanelCard* card = nullptr;
    MenuBarView* view = nullptr;
    StatusItemAnchor anchor;
    /// A click on the item closes an open popover before the item tells of the click.
    int recentDismissals = 0;
};

} // namespace sablequill
