// SPDX-License-Identifier: MIT
#include "StatusNotifierHost.h"

#include <QDBusConnectionInterface>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include <stdexcept>

namespace sablequill {
namespace {

const QString watcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");
const QString itemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString menuInterface = QStringLiteral("com.canonical.dbusmenu");

} // namespace

StatusNotifierHost::StatusNotifierHost(const std::string& busAddress, bool hasHost)
    : bus(busAddress)
    , host(hasHost)
{
    QDBusConnection connection = bus.get();
    connection.registerObject(watcherPath, this, QDBusConnection::ExportScriptableContents);
    const auto reply = connection.interface()->registerService(watcherService,
        QDBusConnectionInterface::ReplaceExistingService,
        QDBusConnectionInterface::AllowReplacement);
    if (reply.value() != QDBusConnectionInterface::ServiceRegistered)
        throw std::runtime_error("the watcher's name is taken");
}

void StatusNotifierHost::setHasHost(bool hasHost)
{
    host = hasHost;
    if (hasHost)
        Q_EMIT StatusNotifierHostRegistered();
    else
        Q_EMIT StatusNotifierHostUnregistered();
}

void StatusNotifierHost::RegisterStatusNotifierItem(const QString& serviceOrPath)
{
    const bool isPath = serviceOrPath.startsWith(u'/');
    const Item item{isPath ? message().service() : serviceOrPath,
        isPath ? serviceOrPath : QStringLiteral("/StatusNotifierItem")};
    registered.push_back(item);
    Q_EMIT StatusNotifierItemRegistered(item.service + item.path);
}

QStringList StatusNotifierHost::registeredItems() const
{
    QStringList result;
    for (const Item& item : registered)
        result.append(item.service + item.path);
    return result;
}

QDBusMessage StatusNotifierHost::call(const QString& service, const QString& path,
    const QString& interface, const QString& method, const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    return bus.call(message);
}

QDBusMessage StatusNotifierHost::press(const Item& item, const QString& method, int x, int y) const
{
    return callItem(item, method, {x, y});
}

QDBusMessage StatusNotifierHost::callItem(
    const Item& item, const QString& method, const QVariantList& arguments) const
{
    return call(item.service, item.path, itemInterface, method, arguments);
}

QDBusMessage StatusNotifierHost::callMenu(
    const Item& item, const QString& method, const QVariantList& arguments) const
{
    return call(item.service, menuPath(item), menuInterface, method, arguments);
}

QVariant StatusNotifierHost::property(
    const Item& item, const QString& path, const QString& interface, const QString& name) const
{
    const QDBusMessage reply =
        call(item.service, path, QStringLiteral("org.freedesktop.DBus.Properties"),
            QStringLiteral("Get"), {interface, name});
    if (reply.type() != QDBusMessage::ReplyMessage)
        return {};
    return reply.arguments().constFirst().value<QDBusVariant>().variant();
}

QVariant StatusNotifierHost::itemProperty(const Item& item, const QString& name) const
{
    return property(item, item.path, itemInterface, name);
}

QVariant StatusNotifierHost::menuProperty(const Item& item, const QString& name) const
{
    return property(item, menuPath(item), menuInterface, name);
}

QString StatusNotifierHost::menuPath(const Item& item) const
{
    return itemProperty(item, QStringLiteral("Menu")).value<QDBusObjectPath>().path();
}

QString StatusNotifierHost::introspect(const Item& item, const QString& path) const
{
    const QDBusMessage reply = call(item.service, path,
        QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"), {});
    return reply.arguments().constFirst().toString();
}

} // namespace sablequill
