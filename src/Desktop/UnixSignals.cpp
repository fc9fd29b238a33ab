// SPDX-License-Identifier: MIT
#include "UnixSignals.h"

#include <QSocketNotifier>

#include <csignal>
#include <sys/signalfd.h>
#include <unistd.h>
#include <utility>

namespace sablequill {
namespace {

sigset_t terminatingSignals()
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGTERM, SIGINT, SIGHUP})
        sigaddset(&signals, number);
    return signals;
}

} // namespace

UnixSignals::UnixSignals(std::function<void()> onTerminate)
    : onTerminate(std::move(onTerminate))
{
    const sigset_t signals = terminatingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    descriptor = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &UnixSignals::drain);
}

UnixSignals::~UnixSignals()
{
    close(descriptor);
    const sigset_t signals = terminatingSignals();
    pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

void UnixSignals::drain()
{
    signalfd_siginfo received;
    if (read(descriptor, &received, sizeof received) == sizeof received)
        onTerminate();
}

} // namespace sablequill
