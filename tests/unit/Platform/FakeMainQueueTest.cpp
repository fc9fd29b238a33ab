// SPDX-License-Identifier: MIT
#include "FakeMainQueue.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

TEST(FakeMainQueue, advance_workScheduledOnTheWay_runsInTheOrderInWhichItFallsDue)
{
    Journal journal;
    FakeClock clock;
    FakeMainQueue queue(journal, clock);
    queue.after(0.2, [&] { journal.record("late"); });
    queue.after(0.1, [&] {
        journal.record("early");
        queue.async([&] { journal.record("next turn"); });
    });
    queue.async([&] { journal.record("first"); });
    journal.take();

    clock.advance(0.19);
    EXPECT_EQ(journal.take(),
        (std::vector<std::string>{"first()", "early()", "mainQueue.async()", "next turn()"}));
    clock.advance(0.01);
    EXPECT_EQ(journal.take(), std::vector<std::string>{"late()"});
    EXPECT_FALSE(clock.hasWork());
}

} // namespace
} // namespace sablequill
