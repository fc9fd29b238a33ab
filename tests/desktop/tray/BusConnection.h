// SPDX-License-Identifier: MIT
#pragma once

#include "harness/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

namespace sablequill {

/// A connection of its own to a session bus, as another program would have it; closed at the end.
class BusConnection {
public:
    /// Throws std::runtime_error when the bus does not take it.
    explicit BusConnection(const std::string& address);
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;
    ~BusConnection();

    QDBusConnection get() const { return connection; }
    /// Runs the main loop until the answer is there; after the deadline an error is the answer.
    QDBusMessage call(const QDBusMessage& message) const;

private:
    QDBusConnection connection;
};

/// Runs the main loop until the condition holds; false when it does not before the deadline.
bool runUntil(const std::function<bool()>& condition);
/// Runs the main loop for that long; true when the condition held each time it was asked for.
bool runWhile(const std::function<bool()>& condition, Milliseconds duration);

} // namespace sablequill
