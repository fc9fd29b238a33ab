// SPDX-License-Identifier: MIT
#include "WindowManagerSetup.h"

#include "Readiness.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <stdexcept>

namespace sablequill {

namespace {

namespace fs = std::filesystem;

using Command = std::vector<std::string>;

/// Stands for the session's own folder.
const std::string homePlaceholder = "@HOME@";

const Command openbox{"openbox", "--sm-disable", "--config-file", homePlaceholder + "/openbox.xml"};

struct SetupRow {
    WindowManagerTraits traits;
    std::vector<Command> commands;
};

const std::map<WindowManagerSetup, SetupRow> table{
    {WindowManagerSetup::none, {{"none", false, false}, {}}},
    {WindowManagerSetup::openbox, {{"openbox"}, {openbox}}},
    {WindowManagerSetup::openboxPicom,
        {{"openboxPicom", true, true},
            {openbox, {"picom", "--backend", "xrender", "--no-vsync", "--config", "/dev/null"}}}},
    {WindowManagerSetup::i3, {{"i3"}, {{"i3", "-c", homePlaceholder + "/i3.conf"}}}},
    {WindowManagerSetup::xfwm4,
        {{"xfwm4", true, true}, {{"xfwm4", "--compositor=on", "--vblank=off"}}}},
    {WindowManagerSetup::metacity,
        {{"metacity", true, true}, {{"metacity", "--sm-disable", "--composite"}}}},
    {WindowManagerSetup::marco, {{"marco"}, {{"marco", "--sm-disable", "--no-composite"}}}},
    {WindowManagerSetup::mutter, {{"mutter", true, true}, {{"mutter", "--x11", "--sm-disable"}}}},
    {WindowManagerSetup::kwin, {{"kwin", true, true}, {{"kwin_x11", "--no-kactivities"}}}},
};

const SetupRow& row(WindowManagerSetup setup)
{
    return table.at(setup);
}

/// Without a file of its own i3 asks its questions of a first start.
void writeTilingConfiguration(const PrivateHome& home)
{
    std::ofstream(home.path() / "i3.conf") << "# i3 config file (v4)\n"
                                              "font pango:monospace 8\n"
                                              "ipc-socket "
                                           << (home.runtimeFolder() / "i3.sock").string() << '\n';
}

/// Its own one without the keys: by default it owns two of those that the program asks for.
void writeOpenboxConfiguration(const PrivateHome& home)
{
    std::ifstream original("/etc/xdg/openbox/rc.xml");
    std::string text(std::istreambuf_iterator<char>(original), {});
    const std::string endTag = "</keyboard>";
    const auto start = text.find("<keyboard>");
    const auto end = text.find(endTag);
    if (start != std::string::npos && end != std::string::npos)
        text.erase(start, end + endTag.size() - start);
    std::ofstream(home.path() / "openbox.xml") << text;
}

/// The program that keeps the settings of xfwm4, as its package names it for the bus.
std::string settingsServiceProgram()
{
    const std::string start = "Exec=";
    std::ifstream file("/usr/share/dbus-1/services/org.xfce.Xfconf.service");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(start))
            return line.substr(start.size());
    }
    throw std::runtime_error("xfconf is not installed");
}

} // namespace

const WindowManagerTraits& traits(WindowManagerSetup setup)
{
    return row(setup).traits;
}

std::ostream& operator<<(std::ostream& stream, WindowManagerSetup setup)
{
    return stream << traits(setup).name;
}

const std::vector<WindowManagerSetup>& everydaySetups()
{
    static const std::vector setups{WindowManagerSetup::none, WindowManagerSetup::openbox,
        WindowManagerSetup::openboxPicom, WindowManagerSetup::i3, WindowManagerSetup::xfwm4};
    return setups;
}

const std::vector<WindowManagerSetup>& furtherSetups()
{
    static const std::vector setups{WindowManagerSetup::metacity, WindowManagerSetup::marco,
        WindowManagerSetup::mutter, WindowManagerSetup::kwin};
    return setups;
}

RunningWindowManager::RunningWindowManager(
    WindowManagerSetup managerSetup, const PrivateHome& sessionHome, const Environment& session)
    : setup(managerSetup)
    , home(sessionHome)
    , environment(session)
    , x(environment.at("DISPLAY"))
{
    writeTilingConfiguration(home);
    writeOpenboxConfiguration(home);
    if (setup == WindowManagerSetup::xfwm4)
        startSettingsService();
    for (const auto& command : row(setup).commands) {
        start(command);
        // A compositor is started only when there is something to compose for.
        if (!waitUntilManaged(x))
            throw std::runtime_error(std::string(traits(setup).name) + " does not manage windows");
    }
    if (traits(setup).isComposited && !waitUntilComposed(x))
        throw std::runtime_error(std::string(traits(setup).name) + " does not compose windows");
}

void RunningWindowManager::start(const Command& command)
{
    auto filled = command;
    for (auto& argument : filled) {
        if (argument.starts_with(homePlaceholder))
            argument.replace(0, homePlaceholder.size(), home.path().string());
    }
    const auto log = home.path() / (fs::path(filled.front()).filename().string() + ".log");
    processes.push_back(
        std::make_unique<ChildProcess>(ChildProcessDescription{filled, environment, log}));
}

void RunningWindowManager::startSettingsService()
{
    // Not left to the bus, which would let go of it: it is to end with the session.
    start({settingsServiceProgram()});
    const bool isThere = waitUntil([&] {
        ChildProcess ping({{"dbus-send", "--session", "--print-reply", "--dest=org.xfce.Xfconf",
                               "/", "org.freedesktop.DBus.Peer.Ping"},
            environment, home.path() / "ping.log"});
        return ping.waitForExit() == 0;
    }).has_value();
    if (!isThere)
        throw std::runtime_error("the settings service did not come up");
}

bool RunningWindowManager::isRunning() const
{
    return std::all_of(processes.begin(), processes.end(),
        [](const auto& process) { return process->isRunning(); });
}

void RunningWindowManager::switchToWorkspace(unsigned workspace) const
{
    if (setup == WindowManagerSetup::i3) {
        // i3 makes a workspace when it is asked for by name, and counts only those that are in use.
        runCommand({{"i3-msg", "-s", (home.runtimeFolder() / "i3.sock").string(), "workspace",
                        std::to_string(workspace + 1)},
            environment, home.path() / "i3-msg.log"});
        return;
    }
    const auto count = x.property(x.root(), "_NET_NUMBER_OF_DESKTOPS");
    if (count.empty() || count[0] <= workspace)
        x.sendToRoot(x.root(), "_NET_NUMBER_OF_DESKTOPS", {workspace + 1});
    x.sendToRoot(x.root(), "_NET_CURRENT_DESKTOP", {workspace, XCB_CURRENT_TIME});
    const std::vector<uint32_t> expected{workspace};
    if (!waitUntil([&] { return x.property(x.root(), "_NET_CURRENT_DESKTOP") == expected; }))
        throw std::runtime_error("no other workspace came up");
}

} // namespace sablequill
