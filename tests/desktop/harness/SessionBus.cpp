// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <fstream>
#include <stdexcept>

namespace sablequill {

namespace {

namespace fs = std::filesystem;

fs::path socketPath(const PrivateHome& home)
{
    return home.runtimeFolder() / "bus";
}

fs::path writeConfiguration(const PrivateHome& home)
{
    const auto path = home.path() / "bus.conf";
    std::ofstream(path) << "<busconfig><type>session</type><listen>" << SessionBus::addressIn(home)
                        << "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
                           "<allow send_destination=\"*\" eavesdrop=\"true\"/>"
                           "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n";
    return path;
}

} // namespace

SessionBus::SessionBus(const PrivateHome& home, const Environment& environment)
    : daemon({{"dbus-daemon", "--nofork", "--nopidfile",
                  "--config-file=" + writeConfiguration(home).string()},
        environment, home.path() / "bus.log"})
{
    // The socket's file appears when the daemon begins to listen on it.
    if (!waitUntil([&] { return fs::exists(socketPath(home)); }))
        throw std::runtime_error("no session bus came up: " + daemon.output());
}

std::string SessionBus::addressIn(const PrivateHome& home)
{
    return "unix:path=" + socketPath(home).string();
}

} // namespace sablequill
