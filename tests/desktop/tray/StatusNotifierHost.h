// SPDX-License-Identifier: MIT
#pragma once

#include "BusConnection.h"

#include <QDBusContext>
#include <QObject>
#include <QStringList>

#include <vector>

namespace sablequill {

/// A panel in the form of its part on the session bus: the StatusNotifier watcher, and a host that
/// presses what is registered with it. Ends with the object.
class StatusNotifierHost final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ registeredItems)
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ hasHost)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)

public:
    struct Item {
        /// The connection's unique name.
        QString service;
        QString path;

        bool operator==(const Item&) const = default;
    };

    /// Is there when it returns, in place of another one that is there already. Throws
    /// std::runtime_error when the bus refuses.
    explicit StatusNotifierHost(const std::string& busAddress, bool hasHost = true);

    /// In the order of registration, each registration one.
    const std::vector<Item>& items() const { return registered; }
    /// The watcher stays.
    void setHasHost(bool hasHost);

    /// What hosts do with an item; the answer may be an error.
    QDBusMessage press(const Item& item, const QString& method, int x, int y) const;
    QDBusMessage callItem(
        const Item& item, const QString& method, const QVariantList& arguments) const;
    QDBusMessage callMenu(
        const Item& item, const QString& method, const QVariantList& arguments) const;
    /// Invalid when there is no such property.
    QVariant itemProperty(const Item& item, const QString& name) const;
    QVariant menuProperty(const Item& item, const QString& name) const;
    QString introspect(const Item& item, const QString& path) const;

    QStringList registeredItems() const;
    bool hasHost() const { return host; }
    int protocolVersion() const { return 0; }

public Q_SLOTS:
    // NOLINTBEGIN(readability-identifier-naming): the names of the interface.
    Q_SCRIPTABLE void RegisterStatusNotifierItem(const QString& serviceOrPath);

Q_SIGNALS:
    Q_SCRIPTABLE void StatusNotifierItemRegistered(const QString& service);
    Q_SCRIPTABLE void StatusNotifierHostRegistered();
    Q_SCRIPTABLE void StatusNotifierHostUnregistered();
    // NOLINTEND(readability-identifier-naming)

private:
    QDBusMessage call(const QString& service, const QString& path, const QString& interface,
        const QString& method, const QVariantList& arguments) const;
    QVariant property(
        const Item& item, const QString& path, const QString& interface, const QString& name) const;
    QString menuPath(const Item& item) const;

    BusConnection bus;
    bool host;
    std::vector<Item> registered;
};

} // namespace sablequill
