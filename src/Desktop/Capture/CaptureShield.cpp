// SPDX-License-Identifier: MIT
#include "CaptureShield.h"

#include "HyprlandShield.h"
#include "KWinShield.h"
#include "NoShield.h"

namespace sablequill {

std::unique_ptr<CaptureShield> CaptureShield::forSession(
    bool isWayland, const std::optional<QDBusConnection>& bus)
{
    // Every client of a plain X server may read the whole screen.
    if (!isWayland)
        return std::make_unique<NoShield>();
    if (const auto socket = HyprlandShield::socketOfSession())
        return std::make_unique<HyprlandShield>(*socket);
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
