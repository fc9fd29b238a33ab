// SPDX-License-Identifier: MIT
#pragma once

#include "FakeClock.h"
#include "Journal.h"
#include "MainQueue.h"

namespace sablequill {

/// Does the work when the test lets the clock advance; `clock.advance(0)` is the next turn of the
/// loop.
class FakeMainQueue final : public MainQueue {
public:
    FakeMainQueue(Journal& journal, FakeClock& clock)
        : journal(journal)
        , clock(clock)
    {
    }

    void async(std::function<void()> work) override
    {
        journal.record("mainQueue.async");
        clock.schedule(0, std::move(work));
    }

    void after(double seconds, std::function<void()> work) override
    {
        journal.record("mainQueue.after", seconds);
        clock.schedule(seconds, std::move(work));
    }

private:
    Journal& journal;
    FakeClock& clock;
};

} // namespace sablequill
