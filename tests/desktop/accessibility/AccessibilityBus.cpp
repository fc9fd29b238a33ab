// SPDX-License-Identifier: MIT
#include "AccessibilityBus.h"

#include <QDBusMessage>

#include <fstream>
#include <stdexcept>

namespace sablequill {
namespace {

const QString registry = QStringLiteral("org.a11y.atspi.Registry");
const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");

/// The program, as its package names it for the bus.
std::string launcherProgram()
{
    const std::string start = "Exec=";
    std::ifstream file("/usr/share/dbus-1/services/org.a11y.Bus.service");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(start))
            return line.substr(start.size());
    }
    throw std::runtime_error("at-spi2-core is not installed");
}

std::string sessionBusOf(const DesktopSession& session, const PrivateHome& home)
{
    return session.environment(home).at("DBUS_SESSION_BUS_ADDRESS");
}

std::string addressOf(const DesktopSession& session, const PrivateHome& home)
{
    const BusConnection sessionBus(sessionBusOf(session, home));
    const auto question = QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"),
        QStringLiteral("/org/a11y/bus"), QStringLiteral("org.a11y.Bus"),
        QStringLiteral("GetAddress"));
    QString address;
    waitUntil([&] {
        address = sessionBus.get().call(question).arguments().value(0).toString();
        return address.startsWith(u"unix:");
    });
    return address.toStdString();
}

} // namespace

AccessibilityBus::AccessibilityBus(const DesktopSession& session)
    : launcher({{launcherProgram(), "--launch-immediately"}, session.environment(home),
        home.path() / "accessibility.log"})
    , bus(addressOf(session, home))
{
}

std::vector<std::string> AccessibilityBus::reachable(const std::vector<std::string>& command)
{
    // Without it the toolkit waits for a desktop to say that somebody needs it.
    std::vector<std::string> result{"env", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1"};
    result.insert(result.end(), command.begin(), command.end());
    return result;
}

std::vector<AccessibleObject> AccessibilityBus::windowsOf(pid_t process) const
{
    std::vector<AccessibleObject> windows;
    for (const auto& application : AccessibleObject(bus.get(), registry, rootPath).children()) {
        if (application.process() != process)
            continue;
        for (const auto& window : application.children()) {
            if (window.is(AccessibleState::showing))
                windows.push_back(window);
        }
    }
    return windows;
}

} // namespace sablequill
