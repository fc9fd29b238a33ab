// SPDX-License-Identifier: MIT
#include "VirtualDisplay.h"

#include "XConnection.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <system_error>

namespace sablequill {

namespace {

/// High enough to stay clear of the displays that people and other tools use.
int randomDisplayNumber()
{
    static std::random_device device;
    return std::uniform_int_distribution(1000, 30000)(device);
}

/// What a server makes, and a killed one leaves.
std::array<std::filesystem::path, 2> filesOf(int number)
{
    const auto text = std::to_string(number);
    return {"/tmp/.X" + text + "-lock", "/tmp/.X11-unix/X" + text};
}

/// A server of someone else may already have the number.
bool isTaken(int number)
{
    const auto files = filesOf(number);
    return std::any_of(
        files.begin(), files.end(), [](const auto& file) { return std::filesystem::exists(file); });
}

} // namespace

VirtualDisplay::VirtualDisplay(const PrivateHome& home, ScreenSize size)
{
    constexpr int attempts = 20;
    for (int attempt = 0; attempt < attempts; ++attempt) {
        const int number = randomDisplayNumber();
        if (!isTaken(number) && start(home, size, number))
            return;
    }
    throw std::runtime_error("no virtual display came up");
}

VirtualDisplay::~VirtualDisplay()
{
    server.reset();
    std::error_code ignored;
    for (const auto& file : filesOf(displayNumber))
        std::filesystem::remove(file, ignored);
}

void VirtualDisplay::kill()
{
    server->sendSignal(SIGKILL);
    server->waitForExit();
}

bool VirtualDisplay::start(const PrivateHome& home, ScreenSize size, int number)
{
    displayNumber = number;
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
