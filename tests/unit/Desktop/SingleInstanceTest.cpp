// SPDX-License-Identifier: MIT
#include "SingleInstance.h"

#include "ChildProcess.h"
#include "OtherUser.h"
#include "ScopedVariable.h"
#include "TemporaryHome.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QObject>

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace sablequill {
namespace {

/// What a start of the program comes to, as an exit status.
enum Start : int { runs = 10, handedOver = 11 };

int start()
{
    return SingleInstance::claim() ? runs : handedOver;
}

/// A start that runs until it is killed.
int startAndStay(const ChildProcess::Report& report)
{
    const auto instance = SingleInstance::claim();
    if (instance)
        report.sendAndStay();
    return handedOver;
}

class SingleInstanceTest : public testing::Test {
protected:
    /// Far more than a start takes, far less than "does not end".
    static constexpr std::chrono::milliseconds moment = 10s;

    SingleInstanceTest() { fs::create_directory(runtime); }

    /// A start in a process of its own.
    static std::optional<int> startElsewhere(const std::function<int()>& work = start)
    {
        ChildProcess child([&](const ChildProcess::Report&) { return work(); });
        return child.exitStatus(moment);
    }

    /// Turns the main loop until the condition holds; false when it does not within seconds.
    static bool waitUntil(const std::function<bool()>& condition)
    {
        const QDeadlineTimer deadline(10s);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }

    void countSecondStarts(const std::unique_ptr<SingleInstance>& instance)
    {
        context.emplace();
        instance->onSecondStart(&*context, [this] { ++secondStarts; });
    }

    const TemporaryHome home;
    const fs::path runtime = home.path() / "runtime";
    const ScopedVariable display{"DISPLAY", QByteArray(":0")};
    const ScopedVariable runtimeVariable{"XDG_RUNTIME_DIR", runtime};
    const ScopedVariable stateVariable{"XDG_STATE_HOME"};
    int secondStarts = 0;
    std::optional<QObject> context;
};

TEST_F(SingleInstanceTest, claim_first_runs)
{
    EXPECT_NE(SingleInstance::claim(), nullptr);
}

TEST_F(SingleInstanceTest, claim_nothingInHomeWhereThereIsARuntimeFolder)
{
    const auto instance = SingleInstance::claim();
    EXPECT_FALSE(fs::exists(home.path() / ".local"));
}

TEST_F(SingleInstanceTest, claim_second_handsOverAndTheFirstIsTold)
{
    const auto instance = SingleInstance::claim();
    countSecondStarts(instance);
    for (int expected = 1; expected <= 3; ++expected) {
        ChildProcess second([](const ChildProcess::Report&) { return start(); });
        EXPECT_TRUE(waitUntil([&] { return secondStarts == expected; }));
        EXPECT_EQ(second.exitStatus(moment), handedOver);
    }
}

TEST_F(SingleInstanceTest, claim_secondWhileTheFirstIsBusy_endsAndTheFirstIsToldLater)
{
    const auto instance = SingleInstance::claim();
    countSecondStarts(instance);
    // Nothing turns the main loop here.
    EXPECT_EQ(startElsewhere(), handedOver);
    EXPECT_EQ(startElsewhere(), handedOver);
    EXPECT_EQ(secondStarts, 0);
    EXPECT_TRUE(waitUntil([this] { return secondStarts > 0; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(secondStarts, 1) << "once for all that waited";
}

TEST_F(SingleInstanceTest, onSecondStart_afterTheSecondStart_stillTold)
{
    const auto instance = SingleInstance::claim();
    EXPECT_EQ(startElsewhere(), handedOver);
    countSecondStarts(instance);
    EXPECT_TRUE(waitUntil([this] { return secondStarts == 1; }));
}

TEST_F(SingleInstanceTest, onSecondStart_contextIsGone_notCalled)
{
    const auto instance = SingleInstance::claim();
    countSecondStarts(instance);
    context.reset();
    EXPECT_EQ(startElsewhere(), handedOver);
    QCoreApplication::processEvents();
    EXPECT_EQ(secondStarts, 0);
}

TEST_F(SingleInstanceTest, claim_firstIsStopped_endsAllTheSame)
{
    ChildProcess first(startAndStay);
    ASSERT_TRUE(first.hasReported());
    first.stop();
    EXPECT_EQ(startElsewhere(), handedOver);
    EXPECT_EQ(startElsewhere(), handedOver);
}

TEST_F(SingleInstanceTest, claim_firstWasKilled_runs)
{
    for (int round = 0; round < 5; ++round) {
        ChildProcess first(startAndStay);
        ASSERT_TRUE(first.hasReported());
        first.kill();
    }
    const auto instance = SingleInstance::claim();
    ASSERT_NE(instance, nullptr);
    countSecondStarts(instance);
    EXPECT_EQ(startElsewhere(), handedOver);
    EXPECT_TRUE(waitUntil([this] { return secondStarts == 1; }));
}

TEST_F(SingleInstanceTest, claim_firstWasStoppedAndKilledAfterASecondStart_runs)
{
    ChildProcess first(startAndStay);
    ASSERT_TRUE(first.hasReported());
    first.stop();
    EXPECT_EQ(startElsewhere(), handedOver);
    first.kill();
    EXPECT_EQ(startElsewhere(), runs);
}

TEST_F(SingleInstanceTest, claim_firstHasEnded_runs)
{
    EXPECT_EQ(startElsewhere(), runs);
    EXPECT_EQ(startElsewhere(), runs);
    SingleInstance::claim().reset();
    EXPECT_EQ(startElsewhere(), runs);
}

TEST_F(SingleInstanceTest, claim_socketIsGoneButItsOwnerIsNot_doesNotRun)
{
    const auto instance = SingleInstance::claim();
    fs::remove(InstanceFolder::candidates().at(0) / "socket");
    EXPECT_EQ(startElsewhere(), handedOver);
}

TEST_F(SingleInstanceTest, claim_remainsOfAnythingInTheFolder_runs)
{
    const fs::path folder = InstanceFolder::candidates().at(0);
    writeFile(folder / "socket", "a file");
    writeFile(folder / "lock", "12345");
    const auto instance = SingleInstance::claim();
    ASSERT_NE(instance, nullptr);
    EXPECT_EQ(startElsewhere(), handedOver);
}

TEST_F(SingleInstanceTest, claim_anotherDisplay_runs)
{
    const auto instance = SingleInstance::claim();
    const ScopedVariable other("DISPLAY", QByteArray(":1"));
    EXPECT_EQ(startElsewhere(), runs);
}

TEST_F(SingleInstanceTest, claim_anotherScreenOfTheDisplay_handsOver)
{
    const auto instance = SingleInstance::claim();
    const ScopedVariable other("DISPLAY", QByteArray(":0.1"));
    EXPECT_EQ(startElsewhere(), handedOver);
}

TEST_F(SingleInstanceTest, claim_noRuntimeFolder_worksInHome)
{
    const ScopedVariable unset("XDG_RUNTIME_DIR");
    const auto instance = SingleInstance::claim();
    ASSERT_NE(instance, nullptr);
    countSecondStarts(instance);
    EXPECT_EQ(startElsewhere(), handedOver);
    EXPECT_TRUE(waitUntil([this] { return secondStarts == 1; }));
}

TEST_F(SingleInstanceTest, claim_runtimeFolderThatCannotBeUsed_worksInHome)
{
    writeFile(runtime / "sablequill", "a file");
    const auto instance = SingleInstance::claim();
    EXPECT_EQ(startElsewhere(), handedOver);
    EXPECT_TRUE(fs::exists(home.path() / ".local/state/sablequill"));
}

TEST_F(SingleInstanceTest, claim_noFolderCanBeUsed_runsUnprotected)
{
    writeFile(runtime / "sablequill", "a file");
    writeFile(home.path() / ".local", "a file");
    const auto instance = SingleInstance::claim();
    ASSERT_NE(instance, nullptr);
    countSecondStarts(instance);
    EXPECT_EQ(startElsewhere(), runs);
    QCoreApplication::processEvents();
    EXPECT_EQ(secondStarts, 0);
}

TEST_F(SingleInstanceTest, claim_ofAnotherUser_runsBesideOurs)
{
    SABLEQUILL_NEEDS_OTHER_USER();
    const auto instance = SingleInstance::claim();
    countSecondStarts(instance);
    const TemporaryHome otherHome;
    ASSERT_EQ(::chown(otherHome.path().c_str(), otherUser, otherUser), 0);
    const auto startAsOther = [] { return becomeOtherUser() ? start() : 0; };
    // Our XDG_RUNTIME_DIR is still set, as after "su".
    EXPECT_EQ(startElsewhere(startAsOther), runs);
    EXPECT_TRUE(fs::exists(otherHome.path() / ".local/state/sablequill"));
    QCoreApplication::processEvents();
    EXPECT_EQ(secondStarts, 0);
}

TEST_F(SingleInstanceTest, claim_asRootInAnotherUsersSession_leavesItsFoldersAlone)
{
    SABLEQUILL_NEEDS_OTHER_USER();
    ASSERT_EQ(::chown(runtime.c_str(), otherUser, otherUser), 0);
    EXPECT_EQ(startElsewhere(), runs);
    EXPECT_TRUE(fs::is_empty(runtime));
}

} // namespace
} // namespace sablequill
