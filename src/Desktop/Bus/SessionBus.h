// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>

#include <optional>

namespace sablequill {

/// The user's session bus, or nothing where none is running: asking the toolkit then would start
/// one.
std::optional<QDBusConnection> sessionBus();
/// The same by a connection of its own, which is open until the process ends.
std::optional<QDBusConnection> ownSessionBus(const QString& name);

} // namespace sablequill
