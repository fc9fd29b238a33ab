// SPDX-License-Identifier: MIT
#include "ShellTest.h"

#include "OtherUser.h"

#include <algorithm>
#include <filesystem>

namespace sablequill {
namespace {

namespace fs = std::filesystem;

class SecondStartTest : public ShellTest {
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        becomeExperienced();
    }

    /// So many starts at the same moment; leaves the one that runs, and expects it to be one.
    void startAtOnce(int count)
    {
        std::vector<std::unique_ptr<ProgramUnderTest>> starts;
        for (int number = 0; number < count; ++number)
            starts.push_back(std::make_unique<ProgramUnderTest>(
                std::vector<std::string>{SABLEQUILL_BINARY}, session, user));
        const auto runningCount = [&] {
            return std::count_if(
                starts.begin(), starts.end(), [](const auto& start) { return start->isRunning(); });
        };
        EXPECT_TRUE(runUntil([&] { return runningCount() <= 1 && popover.isShown(); }));
        EXPECT_TRUE(runWhile([&] { return runningCount() == 1; }, watchTime));
        for (auto& start : starts) {
            if (start->isRunning())
                program = std::move(start);
            else
                EXPECT_EQ(start->waitForEnd(), 0);
        }
    }

    std::size_t overlayCount() const { return findWindows(x, {"Sablequill", "overlay"}).size(); }
};

TEST_F(SecondStartTest, start_popoverClosed_opensIt)
{
    startProgram();
    dismissPopover();
    openPopover();
    EXPECT_EQ(overlayCount(), 1U);
}

TEST_F(SecondStartTest, start_popoverOpen_staysOpenWithTheKeyboard)
{
    startProgram();
    openPopover();
    startAgain();
    EXPECT_TRUE(runWhile([this] { return popover.isShown(); }, watchTime));
}

TEST_F(SecondStartTest, start_overlayHidden_leavesItHidden)
{
    startProgram();
    mouse.click(popover.action(PopoverAction::toggleOverlay));
    ASSERT_TRUE(runUntil([this] { return !overlay.isShown(); }));
    dismissPopover();
    openPopover();
    EXPECT_FALSE(overlay.isShown());
}

TEST_F(SecondStartTest, start_statusArea_opensThePopoverAtTheIcon)
{
    startStatusArea();
    startProgram();
    dismissPopover();
    openPopover();
    EXPECT_TRUE(isPopoverBelow(*icon())) << popover.card();
}

TEST_F(SecondStartTest, start_firstOneIsStopped_endsAndIsHeardLater)
{
    startProgram();
    dismissPopover();
    program->pause();
    startAgain();
    startAgain();
    EXPECT_FALSE(popover.isShown());
    program->resume();
    expectPopoverOpens();
}

TEST_F(SecondStartTest, start_manyAtOnce_oneRuns)
{
    for (int round = 0; round < 3; ++round) {
        startAtOnce(2 + round);
        ASSERT_TRUE(program);
        endProgram();
    }
}

TEST_F(SecondStartTest, start_afterAKill_runs)
{
    startProgram();
    program->kill();
    program.reset();
    ASSERT_TRUE(runUntil([this] { return !overlay.window(); }));
    startProgram();
    dismissPopover();
    openPopover();
}

TEST_F(SecondStartTest, start_afterTheFirstHasEnded_runs)
{
    startProgram();
    endProgram();
    startProgram();
}

TEST_F(SecondStartTest, start_byAnotherUser_isNoneOfOurs)
{
    SABLEQUILL_NEEDS_OTHER_USER();
    startProgram();
    dismissPopover();
    PrivateHome otherHome;
    for (const auto& entry : fs::recursive_directory_iterator(otherHome.path()))
        ASSERT_EQ(::chown(entry.path().c_str(), otherUser, otherUser), 0);
    ASSERT_EQ(::chown(otherHome.path().c_str(), otherUser, otherUser), 0);
    auto environment = session.environment(otherHome);
    // As after su: the run-time folder is still the first user's, whose bus takes no others.
    environment["XDG_RUNTIME_DIR"] = user.runtimeFolder().string();
    environment.erase("DBUS_SESSION_BUS_ADDRESS");
    const auto id = std::to_string(otherUser);
    ChildProcess other(
        {{"setpriv", "--reuid=" + id, "--regid=" + id, "--clear-groups", SABLEQUILL_BINARY},
            environment, user.path() / "other.log"});
    ASSERT_TRUE(runUntil([&] { return overlayCount() == 2 || !other.isRunning(); }));
    EXPECT_TRUE(runWhile([&] { return other.isRunning() && program->isRunning(); }, watchTime))
        << other.output();
    EXPECT_FALSE(popover.hasKeyboard());
}

} // namespace
} // namespace sablequill
