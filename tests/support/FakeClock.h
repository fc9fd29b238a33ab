// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <utility>

namespace sablequill {

/// Time that passes only when a test says so.
class FakeClock {
public:
    using Duration = std::chrono::microseconds;
    /// When work falls due, then its place in the order of scheduling.
    using Ticket = std::pair<Duration, std::uint64_t>;

    static Duration fromSeconds(double seconds);

    Duration now() const { return time; }
    Ticket schedule(double seconds, std::function<void()> work);
    /// Does nothing when the work was done.
    void cancel(const Ticket& ticket);
    /// Does what falls due within this time, in order, also what is scheduled on the way.
    void advance(double seconds);
    bool hasWork() const { return !scheduled.empty(); }

private:
    Duration time{0};
    std::uint64_t count = 0;
    std::map<Ticket, std::function<void()>> scheduled;
};

} // namespace sablequill
