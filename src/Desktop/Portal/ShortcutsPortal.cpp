// SPDX-License-Identifier: MIT
#include "ShortcutsPortal.h"

#include "Constants.h"
#include "PortalCall.h"

#include <utility>

namespace sablequill {
namespace {

/// A method of the bus itself.
QDBusMessage busCall(const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
        QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("org.freedesktop.DBus"), method);
    call.setArguments(arguments);
    return call;
}

bool isAnswer(const QDBusMessage& message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

} // namespace

ShortcutsPortal::ShortcutsPortal(const QDBusConnection& bus)
    : bus(bus)
    , watcher(PortalCall::service, bus, QDBusServiceWatcher::WatchForOwnerChange)
{
    connect(&watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
        [this](const QString&, const QString&, const QString& newOwner) { ownerIs(newOwner); });
    this->bus.connect({}, QStringLiteral("/org/freedesktop/DBus/Local"),
        QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
        SLOT(busEnded()));
    findOwner();
    start();
}

void ShortcutsPortal::findOwner()
{
    PortalCall::send(bus, busCall(QStringLiteral("GetNameOwner"), {PortalCall::service}), this,
        [this](const QDBusMessage& answer) {
            if (isAnswer(answer))
                ownerIs(answer.arguments().value(0).toString());
        });
}

void ShortcutsPortal::start()
{
    // Desktops start theirs when it is first asked for; the watcher hears of it.
    bus.send(busCall(QStringLiteral("StartServiceByName"), {PortalCall::service, 0U}));
}

void ShortcutsPortal::busEnded()
{
    ownerIs({});
}

void ShortcutsPortal::ownerIs(const QString& newOwner)
{
    if (newOwner == owner)
        return;
    owner = newOwner;
    setAvailable(false);
    if (!owner.isEmpty())
        announce();
}

void ShortcutsPortal::announce()
{
    // Older portals know no such thing and find out by themselves who asks.
    const QDBusMessage call = PortalCall::to(QStringLiteral("org.freedesktop.host.portal.Registry"),
        QStringLiteral("Register"), {Constants::bundleIdentifier, QVariantMap()});
    ask(call, [this](const QDBusMessage&) { askForVersion(); });
}

void ShortcutsPortal::askForVersion()
{
    const QDBusMessage call =
        PortalCall::to(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"),
            {QStringLiteral("org.freedesktop.portal.GlobalShortcuts"), QStringLiteral("version")});
    ask(call, [this](const QDBusMessage& answer) { setAvailable(isAnswer(answer)); });
}

void ShortcutsPortal::ask(
    const QDBusMessage& call, std::function<void(const QDBusMessage& answer)> answered)
{
    const auto ifSame = [this, asked = owner, answered = std::move(answered)](const auto& answer) {
        if (owner == asked)
            answered(answer);
    };
    PortalCall::send(bus, call, this, ifSame);
}

void ShortcutsPortal::setAvailable(bool isThere)
{
    if (std::exchange(available, isThere) != isThere)
        Q_EMIT availabilityChanged();
}

} // namespace sablequill
