// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeySwitch.h"
#include "PortalHotKeyCenter.h"
#include "X11HotKeyCenter.h"

#include <optional>

namespace sablequill {

/// The hot keys of the session that the program runs in. In an X11 session they are grabs. In a
/// Wayland session, where grabs hear only what is typed into X windows, the desktop's portal holds
/// them from when it says that it does until it goes, and grabs serve as long as there is none.
class DesktopHotKeys {
public:
    /// The server outlives this object.
    DesktopHotKeys(const XServer& server, bool isWaylandSession);

    HotKeyCenter& center();

private:
    struct PortalOrGrabs {
        PortalOrGrabs(const QDBusConnection& bus, HotKeyCenter& grabs);

        PortalHotKeyCenter portal;
        HotKeySwitch choice;
    };

    X11HotKeyCenter grabs;
    /// Absent where nothing but grabs comes into question.
    std::optional<PortalOrGrabs> wayland;
};

} // namespace sablequill
