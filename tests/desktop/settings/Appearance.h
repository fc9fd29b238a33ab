// SPDX-License-Identifier: MIT
#pragma once

#include "tray/BusConnection.h"

#include <QDBusVariant>

#include <stdexcept>

namespace sablequill {

/// A desktop that tells whether its user prefers a dark appearance, in the form of its part on the
/// session bus.
class Appearance {
public:
    /// What the Settings portal's color-scheme stands for.
    enum Scheme : uint { noPreference = 0, dark = 1, light = 2 };

    /// Is there when it returns. Throws std::runtime_error when the bus refuses.
    explicit Appearance(const std::string& busAddress)
        : bus(busAddress)
    {
        if (!bus.get().registerService(QStringLiteral("org.freedesktop.portal.Desktop")))
            throw std::runtime_error("another portal is on the bus");
    }

    /// Tells all who listen.
    void prefer(Scheme scheme, const QString& key = QStringLiteral("color-scheme")) const
    {
        auto signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"));
        signal.setArguments({QStringLiteral("org.freedesktop.appearance"), key,
            QVariant::fromValue(QDBusVariant(static_cast<uint>(scheme)))});
        bus.get().send(signal);
    }

private:
    BusConnection bus;
};

} // namespace sablequill
