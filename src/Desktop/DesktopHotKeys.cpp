// SPDX-License-Identifier: MIT
#include "DesktopHotKeys.h"

#include "SessionBus.h"

namespace sablequill {

DesktopHotKeys::PortalOrGrabs::PortalOrGrabs(const QDBusConnection& bus, HotKeyCenter& grabs)
    : portal(bus)
    , choice(grabs, portal)
{
}

DesktopHotKeys::DesktopHotKeys(const XServer& server, bool isWaylandSession)
    : grabs(server)
{
    const auto bus =
        isWaylandSession ? ownSessionBus(QStringLiteral("global-shortcuts")) : std::nullopt;
    if (!bus)
        return;
    wayland.emplace(*bus, grabs);
    QObject::connect(&wayland->portal, &PortalHotKeyCenter::availabilityChanged, &wayland->portal,
        [this] { wayland->choice.setDesktopHolds(wayland->portal.isAvailable()); });
}

HotKeyCenter& DesktopHotKeys::center()
{
    if (wayland)
        return wayland->choice;
    return grabs;
}

} // namespace sablequill
