// SPDX-License-Identifier: MIT
#include "WaylandSession.h"

#include "KWinInput.h"
#include "MutterInput.h"

#include <QDBusInterface>

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace sablequill {
namespace {

namespace fs = std::filesystem;

const QString connectionName = QStringLiteral("wayland session");

/// A script that the compositor starts as its first client: it tells where the displays are.
fs::path writeReporter(const PrivateHome& home)
{
    const auto path = home.path() / "reporter";
    std::ofstream(path) << "#!/bin/sh\n"
                           "env >\""
                        << (home.path() / "displays.part").string() << "\"\nmv \""
                        << (home.path() / "displays.part").string() << "\" \""
                        << (home.path() / "displays").string() << "\"\nexec sleep infinity\n";
    fs::permissions(path, fs::perms::owner_all);
    return path;
}

/// The program of the package carries a file capability that a container refuses.
fs::path copyWithoutCapabilities(const PrivateHome& home)
{
    const auto path = home.path() / "kwin_wayland";
    fs::copy_file("/usr/bin/kwin_wayland", path);
    return path;
}

std::vector<std::string> commandFor(Compositor compositor, const PrivateHome& home)
{
    const auto reporter = writeReporter(home).string();
    if (compositor == Compositor::kwin)
        return {copyWithoutCapabilities(home), "--virtual", "--xwayland", "--width", "1280",
            "--height", "800", "--no-lockscreen", "--no-kactivities", "--no-global-shortcuts",
            reporter};
    return {"mutter", "--headless", "--wayland", "--virtual-monitor", "1280x800", "--", reporter};
}

} // namespace

std::string nameOf(Compositor compositor)
{
    return compositor == Compositor::kwin ? "kwin" : "mutter";
}

std::ostream& operator<<(std::ostream& stream, Compositor compositor)
{
    return stream << nameOf(compositor);
}

WaylandSession::WaylandSession(Compositor compositor)
    : compositor(compositor)
    , bus(home, environment(home))
{
    start();
    readDisplays();
    // The X server lets only those in that know its cookie.
    if (displays.contains("XAUTHORITY"))
        setenv("XAUTHORITY", displays.at("XAUTHORITY").c_str(), 1);
    if (!waitUntil([this] { return XConnection::isPossible(displayName()); }))
        throw std::runtime_error("no X server came up: " + process->output());
    connection = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(
        QString::fromStdString(SessionBus::addressIn(home)), connectionName));
    if (compositor == Compositor::kwin)
        device = std::make_unique<KWinInput>(
            (home.runtimeFolder() / displays.at("WAYLAND_DISPLAY")).string());
    else
        device = std::make_unique<MutterInput>(*connection);
}

WaylandSession::~WaylandSession()
{
    device.reset();
    connection.reset();
    QDBusConnection::disconnectFromBus(connectionName);
    unsetenv("XAUTHORITY");
}

Environment WaylandSession::environment(const PrivateHome& user) const
{
    auto environment = user.environment();
    environment["XDG_SESSION_TYPE"] = "wayland";
    environment["DBUS_SESSION_BUS_ADDRESS"] = SessionBus::addressIn(home);
    environment["XDG_RUNTIME_DIR"] = home.runtimeFolder().string();
    for (const auto& [name, value] : displays)
        environment[name] = value;
    return environment;
}

void WaylandSession::start()
{
    auto own = environment(home);
    own["KWIN_WAYLAND_NO_PERMISSION_CHECKS"] = "1";
    process = std::make_unique<ChildProcess>(
        ChildProcessDescription{commandFor(compositor, home), own, home.path() / "compositor.log"});
}

void WaylandSession::readDisplays()
{
    const auto report = home.path() / "displays";
    if (!waitUntil([&] { return fs::exists(report); }, Milliseconds(30000)))
        throw std::runtime_error("no compositor came up: " + process->output());
    std::ifstream lines(report);
    for (std::string line; std::getline(lines, line);) {
        const auto equals = line.find('=');
        const auto name = line.substr(0, equals);
        if (name == "DISPLAY" || name == "WAYLAND_DISPLAY" || name == "XAUTHORITY")
            displays[name] = line.substr(equals + 1);
    }
    if (!displays.contains("DISPLAY") || !displays.contains("WAYLAND_DISPLAY"))
        throw std::runtime_error("the compositor names no displays");
}

void WaylandSession::switchToWorkspace(const XConnection& x, unsigned workspace)
{
    const auto count = x.property(x.root(), "_NET_NUMBER_OF_DESKTOPS");
    if (count.empty() || count[0] < 2)
        x.sendToRoot(x.root(), "_NET_NUMBER_OF_DESKTOPS", {2});
    x.sendToRoot(x.root(), "_NET_CURRENT_DESKTOP", {workspace, XCB_CURRENT_TIME});
    const std::vector<uint32_t> expected{workspace};
    if (!waitUntil([&] { return x.property(x.root(), "_NET_CURRENT_DESKTOP") == expected; }))
        throw std::runtime_error("no other workspace came up");
    // Who has the keyboard there the compositor decides a little later: the popover may.
    const auto active = [&] { return x.property(x.root(), "_NET_ACTIVE_WINDOW"); };
    std::vector<uint32_t> before;
    const auto isSteady = [&] {
        before = active();
        return holdsFor([&] { return active() == before; }, Milliseconds(500));
    };
    if (!waitUntil(isSteady))
        throw std::runtime_error("the keyboard finds no owner on the other workspace");
}

} // namespace sablequill
