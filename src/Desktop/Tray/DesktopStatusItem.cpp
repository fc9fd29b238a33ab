// SPDX-License-Identifier: MIT
#include "DesktopStatusItem.h"

#include "ScreenSpace.h"

namespace sablequill {

DesktopStatusItem::DesktopStatusItem(BusSource busSource)
    : busSource(std::move(busSource))
{
}

void DesktopStatusItem::show(StatusItemDescription description)
{
    xembed = std::make_unique<XEmbedItem>(description.title, description.icon);
    connect(xembed.get(), &XEmbedItem::activated, this, [this] { onActivated(anchor()); });
    if (const auto bus = busSource())
        showOnBus(description, *bus);
    else
        xembed->show();
    onActivated = std::move(description.onActivated);
}

void DesktopStatusItem::showOnBus(const StatusItemDescription& description, QDBusConnection bus)
{
    menu = std::make_unique<DBusMenu>(description.menu);
    menu->exportOn(bus);

    notifierItem =
        std::make_unique<StatusNotifierItem>(description.title, description.icon, DBusMenu::path());
    notifierItem->exportOn(bus);
    // The host gets its answer before the program begins to work.
    connect(notifierItem.get(), &StatusNotifierItem::activated, this, &DesktopStatusItem::clicked,
        Qt::QueuedConnection);

    watcher = std::make_unique<StatusNotifierWatcherLink>(bus, StatusNotifierItem::path());
    connect(watcher.get(), &StatusNotifierWatcherLink::hostChanged, this,
        &DesktopStatusItem::followHost);
    watcher->start();
}

void DesktopStatusItem::followHost()
{
    if (watcher->host() == StatusNotifierWatcherLink::Host::present) {
        xembed->hide();
        return;
    }
    lastClick.reset();
    xembed->show();
}

void DesktopStatusItem::clicked(QPoint place)
{
    // Hosts that do not know where the click was say that it was at 0, 0.
    lastClick = place.isNull() ? std::nullopt : ScreenSpace::fromNative(place);
    onActivated(lastClick);
}

StatusItemAnchor DesktopStatusItem::anchor() const
{
    const StatusItemAnchor icon = xembed ? xembed->anchor() : std::nullopt;
    return icon ? icon : lastClick;
}

} // namespace sablequill
