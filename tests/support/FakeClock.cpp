// SPDX-License-Identifier: MIT
#include "FakeClock.h"

#include <cmath>

namespace sablequill {

FakeClock::Duration FakeClock::fromSeconds(double seconds)
{
    return Duration(std::llround(seconds * 1e6));
}

FakeClock::Ticket FakeClock::schedule(double seconds, std::function<void()> work)
{
    const Ticket ticket{time + fromSeconds(seconds), count++};
    scheduled.emplace(ticket, std::move(work));
    return ticket;
}

void FakeClock::cancel(const Ticket& ticket)
{
    scheduled.erase(ticket);
}

void FakeClock::advance(double seconds)
{
    const Duration end = time + fromSeconds(seconds);
    while (!scheduled.empty() && scheduled.begin()->first.first <= end) {
        auto due = scheduled.extract(scheduled.begin());
        time = due.key().first;
        due.mapped()();
    }
    time = end;
}

} // namespace sablequill
