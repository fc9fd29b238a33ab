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

volatile std::sig_atomic_t wakeDescriptor = -1;

void wakeMainLoop(int)
{
    const int kept = errno;
    const std::uint64_t once = 1;
    [[maybe_unused]] const ssize_t written = write(wakeDescriptor, &once, sizeof once);
    errno = kept;
}

void handleWith(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int number : terminatingSignals)
        sigaction(number, &action, nullptr);
}

} // namespace

// Handled, not blocked and read: the toolkit's threads would not share the mask and the first of
// them would let the signal end the process, while every program started from here would inherit
// it.
UnixSignals::UnixSignals(std::function<void()> onTerminate)
    : onTerminate(std::move(onTerminate))
    , descriptor(eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    auto* notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &UnixSignals::drain);
    wakeDescriptor = descriptor;
    handleWith(wakeMainLoop);
}

UnixSignals::~UnixSignals()
{
    handleWith(SIG_DFL);
    close(descriptor);
}

void UnixSignals::drain()
{
    std::uint64_t received = 0;
    if (read(descriptor, &received, sizeof received) == sizeof received)
        onTerminate();
}

} // namespace sablequill
