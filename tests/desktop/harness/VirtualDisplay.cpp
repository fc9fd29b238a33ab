// SPDX-License-Identifier: MIT
#include "VirtualDisplay.h"

#include "XConnection.h"

#include <csignal>
#include <random>
#include <stdexcept>

namespace sablequill {

namespace {

/// High enough to stay clear of the displays that people and other tools use.
int randomDisplayNumber()
{
    static std::random_device device;
    return std::uniform_int_distribution(1000, 30000)(device);
}

/// A server of someone else may already have the number.
bool isTaken(int number)
{
    const auto text = std::to_string(number);
    return std::filesystem::exists("/tmp/.X" + text + "-lock")
        || std::filesystem::exists("/tmp/.X11-unix/X" + text);
}

} // namespace

VirtualDisplay::VirtualDisplay(const PrivateHome& home, ScreenSize size)
{
    constexpr int attempts = 5;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const int number = randomDisplayNumber();
        if (!isTaken(number) && start(home, size, number))
            return;
    }
    throw std::runtime_error("no virtual display came up");
}

void VirtualDisplay::kill()
{
    server->sendSignal(SIGKILL);
    server->waitForExit();
}

bool VirtualDisplay::start(const PrivateHome& home, ScreenSize size, int number)
{
    displayName = ':' + std::to_string(number);
    const auto screen = std::to_string(size.width) + 'x' + std::to_string(size.height) + 'x'
        + std::to_string(size.depth);
    server = std::make_unique<ChildProcess>(ChildProcessDescription{
        {"Xvfb", displayName, "-screen", "0", screen, "-dpi", "96", "-noreset", "-nolisten", "tcp"},
        home.environment(), home.path() / "xvfb.log"});
    waitUntil([this] { return XConnection::isPossible(displayName) || !server->isRunning(); });
    return server->isRunning() && XConnection::isPossible(displayName);
}

} // namespace sablequill
