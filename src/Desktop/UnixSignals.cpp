// SPDX-License-Identifier: MIT
#include "UnixSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <sys/eventfd.h>
#include <unistd.h>
#include <utility>

namespace sablequill {
namespace {

constexpr std::array terminatingSignals{SIGTERM, SIGINT, SIGHUP};

/// All that a handler can reach.
int wakeUp = -1;

void handleSignal(int)
{
    const int interruptedError = errno;
    const std::uint64_t once = 1;
    // It fails only when the counter is full, and then the main loop is about to read it.
    [[maybe_unused]] const auto written = write(wakeUp, &once, sizeof once);
    errno = interruptedError;
}

void setHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : terminatingSignals)
        sigaction(number, &action, nullptr);
}

} // namespace

// Handled, not blocked: a mask would not hold for the threads that run already, and would be handed
// on to the programs that open links, which then could not be ended.
UnixSignals::UnixSignals(std::function<void()> onTerminate)
    : onTerminate(std::move(onTerminate))
    , descriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &UnixSignals::drain);
    wakeUp = descriptor;
    setHandler(handleSignal);
}

UnixSignals::~UnixSignals()
{
    setHandler(SIG_DFL);
    wakeUp = -1;
    close(descriptor);
}

void UnixSignals::drain()
{
    std::uint64_t times = 0;
    if (read(descriptor, &times, sizeof times) == sizeof times)
        onTerminate();
}

} // namespace sablequill
