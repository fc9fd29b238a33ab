// SPDX-License-Identifier: MIT
#include "UnixSignals.h"

#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <future>
#include <thread>
#include <unistd.h>

using namespace std::chrono_literals;

namespace sablequill {
namespace {

/// A thread that is there before the signals are watched, like those of the toolkit.
class EarlierThread {
public:
    EarlierThread()
        : thread([&] { ended.get_future().wait(); })
    {
    }

    ~EarlierThread()
    {
        ended.set_value();
        thread.join();
    }

private:
    std::promise<void> ended;
    std::thread thread;
};

class UnixSignalsTest : public testing::TestWithParam<int> { };

} // namespace

TEST_P(UnixSignalsTest, arrives_threadsAreThereAlready_oneCallOnTheMainLoop)
{
    const EarlierThread earlier;
    QEventLoop loop;
    int calls = 0;
    const UnixSignals signals([&] {
        ++calls;
        loop.quit();
    });

    kill(getpid(), GetParam());
    EXPECT_EQ(calls, 0);

    QTimer::singleShot(5s, &loop, &QEventLoop::quit);
    loop.exec();
    EXPECT_EQ(calls, 1);
}

TEST_P(UnixSignalsTest, watched_notBlocked_soThatStartedProgramsCanBeEnded)
{
    const UnixSignals signals([] {});

    sigset_t blocked;
    pthread_sigmask(SIG_BLOCK, nullptr, &blocked);

    EXPECT_FALSE(sigismember(&blocked, GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Terminating, UnixSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

} // namespace sablequill
