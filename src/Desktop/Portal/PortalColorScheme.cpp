// SPDX-License-Identifier: MIT
#include "PortalColorScheme.h"

#include "BusCall.h"
#include "PortalCall.h"
#include "SessionBus.h"

#include <QDBusVariant>

namespace sablequill {
namespace {

const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

/// The portal's number for "prefer dark".
constexpr unsigned preferDark = 1;

} // namespace

void PortalColorScheme::start()
{
    std::optional<QDBusConnection> bus = sessionBus();
    if (!bus)
        return;
    bus->connect(PortalCall::service, PortalCall::path, interface, QStringLiteral("SettingChanged"),
        this, SLOT(settingChanged(QDBusMessage)));
    portal.emplace(*bus, PortalCall::service);
    // Also of a portal that comes later: what it tells in its first moment is lost in the toolkit,
    // which does not know yet whose signals these are.
    connect(&*portal, &BusName::ownerChanged, this, [this] {
        if (portal->isOwned())
            read();
    });
    portal->start();
}

void PortalColorScheme::read()
{
    const QDBusMessage call =
        PortalCall::to(interface, QStringLiteral("Read"), {appearance, colorScheme});
    BusCall::send(QDBusConnection::sessionBus(), call, this, [this](const QDBusMessage& answer) {
        if (BusCall::isAnswer(answer))
            take(answer.arguments().value(0));
    });
}

// The whole message: the toolkit refuses to connect a slot that takes a variant.
void PortalColorScheme::settingChanged(const QDBusMessage& signal)
{
    const QVariantList change = signal.arguments();
    if (change.value(0).toString() == appearance && change.value(1).toString() == colorScheme)
        take(change.value(2));
}

void PortalColorScheme::take(QVariant scheme)
{
    // A signal wraps the value once, the answer to a question twice.
    while (scheme.canConvert<QDBusVariant>())
        scheme = scheme.value<QDBusVariant>().variant();
    const bool isDark = scheme.toUInt() == preferDark;
    if (isDark != prefersDark.get())
        prefersDark = isDark;
}

} // namespace sablequill
