// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

namespace sablequill {
namespace {

class LifecycleTest : public OverlayTest {
protected:
    /// How often the program woke up during a time in which nobody asked anything of it.
    std::int64_t wakeUpsWhileIdle()
    {
        overlay.steadyPicture();
        EXPECT_TRUE(holdsFor([&] { return program->isRunning(); }, watchTime));
        const auto before = countersOf(program->pid());
        EXPECT_TRUE(holdsFor([&] { return program->isRunning(); }, Milliseconds(1000)));
        return countersOf(program->pid()).voluntarySwitches - before.voluntarySwitches;
    }
};

TEST_P(LifecycleTest, terminate_shown_endsCleanly)
{
    startProgram();
    endProgram();
    EXPECT_FALSE(overlay.window());
}

TEST_P(LifecycleTest, terminate_hidden_endsCleanly)
{
    startProgram();
    pressToggle();
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    endProgram();
}

TEST_P(LifecycleTest, idle_reading_sleeps)
{
    startProgram();
    EXPECT_LE(wakeUpsWhileIdle(), 2);
}

TEST_P(LifecycleTest, idle_editing_sleeps)
{
    startProgram();
    quickOpen();
    EXPECT_LE(wakeUpsWhileIdle(), 2);
}

TEST_P(LifecycleTest, panel_whileShown_isInNoList)
{
    startProgram();
    EXPECT_TRUE(holdsFor(
        [&] {
            const auto clients = x.property(x.root(), "_NET_CLIENT_LIST");
            return std::find(clients.begin(), clients.end(), *overlay.window()) == clients.end();
        },
        watchTime));
}

INSTANTIATE_FOR_ALL_SETUPS(LifecycleTest);

} // namespace
} // namespace sablequill
