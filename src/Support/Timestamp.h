// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <chrono>
#include <optional>

namespace sablequill {

/// A point in time, UTC.
using Timestamp = std::chrono::sys_time<std::chrono::microseconds>;

Timestamp currentTime();

/// ISO 8601 with whole seconds, "2026-01-31T09:15:00Z"; fractions are cut off. Years 0 to 9999.
QByteArray formatTimestamp(Timestamp time);

/// Reads "YYYY-MM-DDTHH:MM:SS" followed by "Z" or "±HH:MM". Nothing for a fraction, a missing zone
/// or second, a lower-case "t", a date that does not exist, or a time that is not in the years 0 to
/// 9999 of UTC: what is read can be written.
std::optional<Timestamp> parseTimestamp(QByteArrayView text);

} // namespace sablequill
