// SPDX-License-Identifier: MIT
#include "CaptureShield.h"

#include "HyprlandShield.h"
#include "KWinShield.h"
#include "NoShield.h"
#include "Session.h"

namespace sablequill {

std::unique_ptr<CaptureShield> CaptureShield::forSession(
    const Session& session, const std::optional<QDBusConnection>& bus)
{
    // Every client of a plain X server may read the whole screen.
    if (!session.isWayland)
        return std::make_unique<NoShield>();
    if (session.hyprlandSocket)
        return std::make_unique<HyprlandShield>(*session.hyprlandSocket);
    // Also where KWin is not there yet.
    if (bus)
        return std::make_unique<KWinShield>(*bus);
    return std::make_unique<NoShield>();
}

void CaptureShield::setEffect(MirkEffect next)
{
    if (next != effect.get())
        effect = next;
}

} // namespace sablequill
