// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <csignal>
#include <cstring>
#include <fstream>
#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

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

/// The socket's file is there a moment before the daemon listens on it.
bool takesConnections(const fs::path& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    const int client = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int result = connect(client, reinterpret_cast<sockaddr*>(&address), sizeof address);
    close(client);
    return result == 0;
}

} // namespace

SessionBus::SessionBus(const PrivateHome& home, const Environment& environment)
    : daemon({{"dbus-daemon", "--nofork", "--nopidfile",
                  "--config-file=" + writeConfiguration(home).string()},
        environment, home.path() / "bus.log"})
{
    if (!waitUntil([&] { return takesConnections(socketPath(home)); }))
        throw std::runtime_error("no session bus came up: " + daemon.output());
}

void SessionBus::kill()
{
    daemon.sendSignal(SIGKILL);
    daemon.waitForExit();
}

std::string SessionBus::addressIn(const PrivateHome& home)
{
    return "unix:path=" + socketPath(home).string();
}

} // namespace sablequill
