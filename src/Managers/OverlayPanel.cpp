// SPDX-License-Identifier: MIT
#include "OverlayPanel.h"

#include "AppSettings.h"

namespace sablequill {

OverlayPanel::OverlayPanel(PanelFactory& panels, const Rect& contentRect, unsigned styleMask,
    BackingStore backing, bool defer)
    : platformPanel(
        panels.makePanel({contentRect, styleMask, backing, defer, canBecomeKey, canBecomeMain}))
{
}

void OverlayPanel::applySettings(const AppSettings& settings)
{
    platformPanel->setAlpha(settings.opacity);
    platformPanel->setLevel(settings.alwaysOnTop ? WindowLevel::floating : WindowLevel::normal);
    platformPanel->setMovableByWindowBackground(true);
}

} // namespace sablequill
