// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "PrivateHome.h"

#include <string>

namespace sablequill {

/// A session bus of its own that can start nothing but the settings service of the Xfce window
/// manager, whatever else the machine has installed.
class SessionBus {
public:
    /// Returns when the bus listens. Throws std::runtime_error when it does not come up.
    SessionBus(const PrivateHome& home, const Environment& environment);

    /// As when it crashes; returns when it is gone.
    void kill();

    /// As in DBUS_SESSION_BUS_ADDRESS, also before the bus is there.
    static std::string addressIn(const PrivateHome& home);

private:
    ChildProcess daemon;
};

} // namespace sablequill
