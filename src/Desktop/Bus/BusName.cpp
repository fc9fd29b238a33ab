// SPDX-License-Identifier: MIT
#include "BusName.h"

#include "BusCall.h"

namespace sablequill {

BusName::BusName(const QDBusConnection& bus, const QString& name)
    : bus(bus)
    , name(name)
    , watcher(name, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& next) { take(next); });
    this->bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
        QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
        SLOT(busEnded()));
    ask();
}

void BusName::ask()
{
    const QDBusMessage call = BusCall::toBus(QStringLiteral("GetNameOwner"), {name});
    BusCall::send(bus, call, this, [this](const QDBusMessage& answer) {
        // The announcement of a change is newer.
        if (!current)
            take(BusCall::isAnswer(answer) ? answer.arguments().value(0).toString() : QString());
    });
}

void BusName::start()
{
    bus.send(BusCall::toBus(QStringLiteral("StartServiceByName"), {name, 0U}));
}

void BusName::busEnded()
{
    take({});
}

void BusName::take(const QString& next)
{
    if (current == next)
        return;
    current = next;
    Q_EMIT ownerChanged();
}

} // namespace sablequill
