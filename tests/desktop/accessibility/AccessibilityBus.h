// SPDX-License-Identifier: MIT
#pragma once

#include "AccessibleObject.h"
#include "harness/DesktopSession.h"
#include "tray/BusConnection.h"

namespace sablequill {

/// What a desktop runs for those who work with assistive programs, and one such program.
class AccessibilityBus {
public:
    /// Is there when it returns. Throws std::runtime_error when it does not come up. The session
    /// outlives it.
    explicit AccessibilityBus(const DesktopSession& session);

    /// A program that is to be reached is started after the bus is there, by this command.
    static std::vector<std::string> reachable(const std::vector<std::string>& command);
    /// The windows of the process that can be seen; none while it is not there yet.
    std::vector<AccessibleObject> windowsOf(pid_t process) const;

private:
    PrivateHome home;
    ChildProcess launcher;
    BusConnection bus;
};

} // namespace sablequill
