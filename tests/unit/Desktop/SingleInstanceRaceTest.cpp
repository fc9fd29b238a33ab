// SPDX-License-Identifier: MIT
#include "SingleInstance.h"

#include "ChildProcess.h"
#include "ScopedVariable.h"
#include "TemporaryHome.h"

#include <QEventLoop>
#include <QObject>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <new>
#include <sched.h>
#include <sys/mman.h>
#include <vector>

namespace sablequill {
namespace {

/// Lets a number of processes go at the same instant.
class StartingLine {
public:
    explicit StartingLine(int runners)
        : missing(new (shared()) std::atomic<int>(runners))
    {
    }
    ~StartingLine() { ::munmap(missing, sizeof *missing); }

    StartingLine(const StartingLine&) = delete;
    StartingLine& operator=(const StartingLine&) = delete;

    /// Spins, because waking the processes up would space them out.
    void wait() const
    {
        --*missing;
        while (*missing > 0)
            ::sched_yield();
    }

private:
    static void* shared()
    {
        return ::mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
            MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    }

    std::atomic<int>* const missing;
};

class SingleInstanceRaceTest : public testing::Test {
protected:
    static constexpr int rounds = 50;
    static constexpr int runners = 8;
    static constexpr int handedOver = 11;

    /// Ends when another one runs; otherwise runs until it is killed.
    static int start(const ChildProcess::Report& report)
    {
        const auto instance = SingleInstance::claim();
        if (!instance)
            return handedOver;
        QObject context;
        instance->onSecondStart(&context, [] {});
        report.send();
        return QEventLoop().exec();
    }

    /// Whether exactly one of the starts at one instant runs and all others have handed over.
    static void race()
    {
        const StartingLine line(runners);
        std::vector<std::unique_ptr<ChildProcess>> children;
        children.reserve(runners);
        for (int runner = 0; runner < runners; ++runner) {
            children.push_back(
                std::make_unique<ChildProcess>([&](const ChildProcess::Report& report) {
                    line.wait();
                    return start(report);
                }));
        }
        int owners = 0;
        for (const auto& child : children) {
            if (child->hasReported())
                ++owners;
            else
                EXPECT_EQ(child->exitStatus(), handedOver);
        }
        EXPECT_EQ(owners, 1);
        // All that run are killed here, and leave their sockets and locks to the next round.
    }

    const TemporaryHome home;
    const ScopedVariable display{"DISPLAY", QByteArray(":0")};
    const ScopedVariable runtimeVariable{"XDG_RUNTIME_DIR", home.path()};
};

TEST_F(SingleInstanceRaceTest, claim_manyAtOnceInAFreshFolder_oneRuns)
{
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        const ScopedVariable fresh("DISPLAY", ':' + QByteArray::number(round));
        race();
    }
}

TEST_F(SingleInstanceRaceTest, claim_manyAtOnceAfterTheOwnerWasKilled_oneRuns)
{
    for (int round = 0; round < rounds && !HasFailure(); ++round)
        race();
}

} // namespace
} // namespace sablequill
