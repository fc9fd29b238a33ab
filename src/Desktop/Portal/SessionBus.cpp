// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <QFile>

namespace sablequill {

std::optional<QDBusConnection> sessionBus()
{
    const bool isNamed = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!isNamed && (runtime.isEmpty() || !QFile::exists(runtime + QStringLiteral("/bus"))))
        return std::nullopt;
    QDBusConnection bus = QDBusConnection::sessionBus();
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

} // namespace sablequill
