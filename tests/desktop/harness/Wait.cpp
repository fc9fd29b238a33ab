// SPDX-License-Identifier: MIT
#include "Wait.h"

#include <thread>

namespace sablequill {

namespace {

using Clock = std::chrono::steady_clock;

constexpr Milliseconds pollInterval{3};

Milliseconds since(Clock::time_point start)
{
    return std::chrono::duration_cast<Milliseconds>(Clock::now() - start);
}

} // namespace

std::optional<Milliseconds> waitUntil(const std::function<bool()>& condition, Milliseconds deadline)
{
    const auto start = Clock::now();
    while (!condition()) {
        if (since(start) > deadline)
            return std::nullopt;
        std::this_thread::sleep_for(pollInterval);
    }
    return since(start);
}

bool holdsFor(const std::function<bool()>& condition, Milliseconds duration)
{
    return !waitUntil([&] { return !condition(); }, duration);
}

} // namespace sablequill
