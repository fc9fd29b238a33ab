// SPDX-License-Identifier: MIT
#include "StatusNotifierWatcherLink.h"

#include "BusCall.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QDBusVariant>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString path = QStringLiteral("/StatusNotifierWatcher");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

/// Whether the question went to a watcher that hangs, in contrast to none.
bool isWithoutAnswer(const QDBusError& error)
{
    return error.type() == QDBusError::NoReply || error.type() == QDBusError::Timeout
        || error.type() == QDBusError::TimedOut;
}

} // namespace

StatusNotifierWatcherLink::StatusNotifierWatcherLink(
    const QDBusConnection& bus, const QString& itemPath)
    : bus(bus)
    , itemPath(itemPath)
{
    owner.setWatchMode(QDBusServiceWatcher::WatchForOwnerChange);
    connect(&owner, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](
            const QString&, const QString&, const QString& newOwner) { ownerChanged(newOwner); });
}

void StatusNotifierWatcherLink::start()
{
    owner.setConnection(bus);
    owner.addWatchedService(service);
    follow(QStringLiteral("StatusNotifierHostRegistered"));
    follow(QStringLiteral("StatusNotifierHostUnregistered"));
    bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
        QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
        SLOT(busEnded()));
    registerItem();
    askForHost();
}

void StatusNotifierWatcherLink::busEnded()
{
    ownerChanged({});
}

void StatusNotifierWatcherLink::follow(const QString& signal)
{
    bus.connect(service, path, service, signal, this, SLOT(askForHost()));
}

void StatusNotifierWatcherLink::ownerChanged(const QString& newOwner)
{
    if (newOwner.isEmpty()) {
        ++latest;
        takeNoWatcher();
        return;
    }
    registerItem();
    askForHost();
}

void StatusNotifierWatcherLink::registerItem()
{
    bus.send(BusCall::to(
        service, path, service, QStringLiteral("RegisterStatusNotifierItem"), {itemPath}));
}

void StatusNotifierWatcherLink::askForHost()
{
    const unsigned question = ++latest;
    const QDBusMessage call = BusCall::to(service, path, properties, QStringLiteral("Get"),
        {service, QStringLiteral("IsStatusNotifierHostRegistered")});
    BusCall::send(bus, call, this, [this, question](const QDBusMessage& answer) {
        if (question == latest)
            takeAnswer(answer);
    });
}

void StatusNotifierWatcherLink::takeAnswer(const QDBusMessage& answer)
{
    const QDBusReply<QDBusVariant> reply = answer;
    if (reply.isValid())
        take(reply.value().variant().toBool() ? Host::present : Host::absent);
    else if (reply.error().name() == u"org.freedesktop.DBus.Error.NameHasNoOwner")
        takeNoWatcher();
    else if (!isWithoutAnswer(reply.error()))
        take(Host::absent);
}

void StatusNotifierWatcherLink::takeNoWatcher()
{
    // When desktops start, a new watcher may be there although its announcement still waits in the
    // main loop; whoever believes that there is none would then run into one that is busy starting.
    if (!bus.interface()->isServiceRegistered(service))
        take(Host::absent);
}

void StatusNotifierWatcherLink::take(Host host)
{
    if (host == currentHost)
        return;
    currentHost = host;
    Q_EMIT hostChanged();
}

} // namespace sablequill
