// SPDX-License-Identifier: MIT
#include "ShortcutsPortal.h"

#include "BusCall.h"
#include "Constants.h"
#include "PortalCall.h"

#include <utility>

namespace sablequill {

ShortcutsPortal::ShortcutsPortal(const QDBusConnection& bus)
    : bus(bus)
    , portal(bus, PortalCall::service)
{
    connect(&portal, &BusName::ownerChanged, this, &ShortcutsPortal::ownerChanged);
    // Desktops start theirs when it is first asked for.
    portal.start();
}

void ShortcutsPortal::ownerChanged()
{
    setAvailable(false);
    if (portal.isOwned())
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
    ask(call, [this](const QDBusMessage& answer) { setAvailable(BusCall::isAnswer(answer)); });
}

void ShortcutsPortal::ask(
    const QDBusMessage& call, std::function<void(const QDBusMessage& answer)> answered)
{
    const auto ifSame = [this, asked = portal.owner(), answered = std::move(answered)](
                            const auto& answer) {
        if (portal.owner() == asked)
            answered(answer);
    };
    BusCall::send(bus, call, this, ifSame);
}

void ShortcutsPortal::setAvailable(bool isThere)
{
    if (std::exchange(available, isThere) != isThere)
        Q_EMIT availabilityChanged();
}

} // namespace sablequill
