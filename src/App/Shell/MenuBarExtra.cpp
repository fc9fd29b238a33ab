// SPDX-License-Identifier: MIT
#include "MenuBarExtra.h"

#include "AppState.h"
#include "Application.h"
#include "Constants.h"
#include "Icons.h"
#include "MainQueue.h"
#include "OverlayManager.h"
#include "PanelCard.h"
#include "Platform.h"
#include "WindowPlacement.h"

#include <QPointer>

#include <utility>

namespace sablequill {
namespace {

/// Seconds within which a click on the item follows the press that dismissed the popover.
constexpr double clickTime = 0.3;
/// Seconds in which the overlay is painted before anything else is made: the popover takes as long
/// again.
constexpr double headStart = 0.1;
/// Seconds that a host of the status area takes to give the icon its place.
constexpr double dockingTime = 0.5;

PanelAttributes popoverAttributes()
{
    return {.isFloatingPanel = true,
        .titleVisibility = TitleVisibility::hidden,
        .titlebarAppearsTransparent = true,
        .backgroundColor = BackgroundColor::clear,
        .isOpaque = false,
        .hasShadow = false};
}

} // namespace

MenuBarExtra::MenuBarExtra(AppState& appState, const Platform& platform, StatusItem& statusItem)
    : appState(appState)
    , panels(platform.panels)
    , screens(platform.screens)
    , statusItem(statusItem)
    , mainQueue(platform.mainQueue)
    , actions(menuActions(
          appState, [&application = platform.application] { application.showSettingsWindow(); },
          [&application = platform.application] { application.terminate(); }))
{
}

MenuBarExtra::~MenuBarExtra() = default;

void MenuBarExtra::launch()
{
    appState.bootstrap();
    mainQueue.after(headStart, [self = QPointer(this)] {
        if (self)
            self->follow();
    });
}

void MenuBarExtra::follow()
{
    addToStatusArea();
    // The user may have been faster, with the popover or with a note.
    if (panel || appState.overlayManager->isEditing)
        return;
    // The popover is there at once; the icon is still on its way.
    present({});
    mainQueue.after(dockingTime, [self = QPointer(this)] {
        if (!self || !self->isOpen() || self->anchor)
            return;
        self->anchor = self->statusItem.anchor();
        self->place();
    });
}

void MenuBarExtra::addToStatusArea()
{
    std::vector<StatusMenuEntry> menu;
    for (const MenuAction& action : actions)
        menu.push_back({action.title, action.run});
    statusItem.show({.title = Constants::appName,
        .icon = statusIcon(),
        .onActivated = [this](const StatusItemAnchor& place) { toggle(place); },
        .menu = std::move(menu)});
}

void MenuBarExtra::makePopover()
{
    view = new MenuBarView(appState, actions);
    auto content = std::make_unique<PanelCard>(view);
    card = content.get();
    panel = panels.makePanel({.contentRect = {0, 0, 280, 400},
        .styleMask = StyleMask::borderless | StyleMask::nonactivatingPanel,
        .canBecomeKey = true,
        .role = QStringLiteral("popover")});
    panel->setAttributes(popoverAttributes());
    panel->setContent(std::move(content));
    panel->setLevel(WindowLevel::floating);
    panel->setDidLoseAttention([this] { loseAttention(); });
    connect(view, &MenuBarView::escaped, this, &MenuBarExtra::close);
    connect(view, &MenuBarView::heightChanged, this, [this] {
        if (isOpen())
            place();
    });
}

void MenuBarExtra::open()
{
    present(statusItem.anchor());
    panel->makeKey();
}

void MenuBarExtra::close()
{
    if (panel)
        panel->orderOut();
}

bool MenuBarExtra::isOpen() const
{
    return panel && panel->isVisible();
}

void MenuBarExtra::toggle(const StatusItemAnchor& place)
{
    if (isOpen()) {
        close();
    } else if (recentDismissals == 0) {
        present(place);
        panel->makeKey();
    }
}

void MenuBarExtra::loseAttention()
{
    close();
    ++recentDismissals;
    mainQueue.after(clickTime, [self = QPointer(this)] {
        if (self)
            --self->recentDismissals;
    });
}

void MenuBarExtra::present(const StatusItemAnchor& next)
{
    anchor = next;
    appState.bootstrap();
    if (!panel)
        makePopover();
    view->appear();
    place();
    panel->orderFrontRegardless();
}

void MenuBarExtra::place()
{
    const QSize size = card->contentSize();
    const auto screen = screens.screenOf(anchor.value_or(Rect{}));
    if (screen)
        panel->setFrame(WindowPlacement::popover(size.width(), size.height(), anchor, *screen));
}

} // namespace sablequill
