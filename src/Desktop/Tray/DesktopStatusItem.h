// SPDX-License-Identifier: MIT
#pragma once

#include "DBusMenu.h"
#include "StatusNotifierItem.h"
#include "StatusNotifierWatcherLink.h"
#include "XEmbedItem.h"

#include <functional>
#include <optional>

namespace sablequill {

/// The status item in whichever kind of status area the desktop has: a StatusNotifier host where
/// one is registered, an XEmbed status area otherwise. A host that does not answer counts as none
/// that is known of, and gets no second icon beside it.
class DesktopStatusItem final : public QObject, public StatusItem {
public:
    using BusSource = std::function<std::optional<QDBusConnection>()>;

    /// The source is asked when the item is shown. Without a bus there are only XEmbed status
    /// areas.
    explicit DesktopStatusItem(BusSource busSource);

    void show(StatusItemDescription description) override;
    /// A StatusNotifier host tells it with each click only: the last one counts until the host
    /// goes.
    StatusItemAnchor anchor() const override;

private:
    void showOnBus(const StatusItemDescription& description, QDBusConnection bus);
    void followHost();
    void clicked(QPoint place);

    BusSource busSource;
    std::function<void(const StatusItemAnchor& anchor)> onActivated;
    StatusItemAnchor lastClick;
    std::unique_ptr<XEmbedItem> xembed;
    std::unique_ptr<DBusMenu> menu;
    std::unique_ptr<StatusNotifierItem> notifierItem;
    std::unique_ptr<StatusNotifierWatcherLink> watcher;
};

} // namespace sablequill
