// SPDX-License-Identifier: MIT
#include "Appearance.h"

#include <stdexcept>

namespace sablequill {
namespace {

const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString group = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

} // namespace

Appearance::Appearance(const std::string& busAddress, Scheme scheme)
    : bus(busAddress)
    , current(scheme)
{
    bus.get().registerObject(path, this, QDBusConnection::ExportScriptableSlots);
    if (!bus.get().registerService(QStringLiteral("org.freedesktop.portal.Desktop")))
        throw std::runtime_error("another portal is on the bus");
}

void Appearance::prefer(Scheme scheme)
{
    current = scheme;
    tell(colorScheme, scheme);
}

void Appearance::changeContrast()
{
    tell(QStringLiteral("contrast"), light);
}

QDBusVariant Appearance::Read(const QString& asked, const QString& key) const
{
    const bool isKnown = asked == group && key == colorScheme;
    // This method puts what it tells into one variant more than the signal does.
    return QDBusVariant(
        QVariant::fromValue(QDBusVariant(static_cast<uint>(isKnown ? current : noPreference))));
}

void Appearance::tell(const QString& key, uint value) const
{
    auto signal = QDBusMessage::createSignal(
        path, QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
    signal.setArguments({group, key, QVariant::fromValue(QDBusVariant(value))});
    bus.get().send(signal);
}

} // namespace sablequill
