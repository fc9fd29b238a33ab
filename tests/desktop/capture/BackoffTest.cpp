// SPDX-License-Identifier: MIT
#include "Backoff.h"

#include "BusConnection.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

class BackoffTest : public testing::Test {
protected:
    BackoffTest()
    {
        QObject::connect(&backoff, &Backoff::elapsed, &backoff, [this] { ++elapsed; });
    }

    Backoff backoff{2ms, 8ms};
    int elapsed = 0;
};

TEST_F(BackoffTest, wait_again_isTwiceAsLongUntilTheLongest)
{
    EXPECT_TRUE(backoff.isFresh());
    for (const auto time : {2ms, 4ms, 8ms}) {
        EXPECT_EQ(backoff.time(), time);
        const int before = elapsed;
        backoff.wait();
        EXPECT_FALSE(backoff.isFresh());
        EXPECT_TRUE(runUntil([&] { return elapsed == before + 1; }));
    }
    backoff.wait();
    EXPECT_TRUE(runWhile([&] { return elapsed == 3; }, Milliseconds(60)));
}

TEST_F(BackoffTest, reset_exhausted_beginsWithTheFirstWait)
{
    for (int waits = 0; waits < 4; ++waits)
        backoff.wait();
    backoff.reset();
    EXPECT_TRUE(backoff.isFresh());
    EXPECT_EQ(backoff.time(), 2ms);
    backoff.wait();
    EXPECT_TRUE(runUntil([&] { return elapsed > 0; }));
}

TEST_F(BackoffTest, stop_waiting_doesNotElapse)
{
    backoff.wait();
    backoff.stop();
    EXPECT_TRUE(runWhile([&] { return elapsed == 0; }, Milliseconds(40)));
}

TEST_F(BackoffTest, runSoon_waiting_elapsesOnceAndKeepsTheNextWait)
{
    backoff.wait();
    backoff.runSoon();
    EXPECT_TRUE(runUntil([&] { return elapsed == 1; }));
    EXPECT_TRUE(runWhile([&] { return elapsed == 1; }, Milliseconds(40)));
    EXPECT_EQ(backoff.time(), 4ms);
}

} // namespace
} // namespace sablequill
