// SPDX-License-Identifier: MIT
#include "PortalColorScheme.h"

#include "SessionBus.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

/// The portal's number for "prefer dark".
constexpr unsigned preferDark = 1;

} // namespace

PortalColorScheme::PortalColorScheme()
{
    std::optional<QDBusConnection> bus = sessionBus();
    if (!bus)
        return;
    bus->connect(service, path, interface, QStringLiteral("SettingChanged"), this,
        SLOT(settingChanged(QDBusMessage)));
    read();
}

void PortalColorScheme::read()
{
    QDBusMessage call =
        QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    call.setArguments({appearance, colorScheme});
    auto* pending =
        new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending] {
        const QDBusPendingReply<QDBusVariant> reply = *pending;
        if (!reply.isError())
            take(reply.value().variant());
        pending->deleteLater();
    });
}

// The whole message: the toolkit refuses to connect a slot that takes a variant.
void PortalColorScheme::settingChanged(const QDBusMessage& signal)
{
    const QVariantList change = signal.arguments();
    if (change.value(0).toString() == appearance && change.value(1).toString() == colorScheme)
        take(change.value(2));
}

void PortalColorScheme::take(const QVariant& value)
{
    // The answer to a question holds one variant more than a signal.
    const bool isNested = value.canConvert<QDBusVariant>();
    const QVariant scheme = isNested ? value.value<QDBusVariant>().variant() : value;
    const bool isDark = scheme.toUInt() == preferDark;
    if (isDark != prefersDark.get())
        prefersDark = isDark;
}

} // namespace sablequill
