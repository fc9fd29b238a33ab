// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace sablequill {

using Milliseconds = std::chrono::milliseconds;

/// Long enough for a busy machine; a condition that comes true costs only the time it takes.
inline constexpr Milliseconds defaultDeadline{8000};

/// Asks for the condition every few milliseconds until it holds or the deadline has passed.
/// Returns the time that it took, or nothing when it never held.
std::optional<Milliseconds> waitUntil(
    const std::function<bool()>& condition, Milliseconds deadline = defaultDeadline);

/// True when the condition held each time it was asked for during the whole duration: for what must
/// not happen.
bool holdsFor(const std::function<bool()>& condition, Milliseconds duration);

} // namespace sablequill
