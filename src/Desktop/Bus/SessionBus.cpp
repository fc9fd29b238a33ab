// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <QFile>

namespace sablequill {
namespace {

bool isThere()
{
    const bool isNamed = !qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS");
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return isNamed || (!runtime.isEmpty() && QFile::exists(runtime + QStringLiteral("/bus")));
}

std::optional<QDBusConnection> ifConnected(const QDBusConnection& bus)
{
    return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

} // namespace

std::optional<QDBusConnection> sessionBus()
{
    return isThere() ? ifConnected(QDBusConnection::sessionBus()) : std::nullopt;
}

std::optional<QDBusConnection> ownSessionBus(const QString& name)
{
    return isThere() ? ifConnected(QDBusConnection::connectToBus(QDBusConnection::SessionBus, name))
                     : std::nullopt;
}

} // namespace sablequill
