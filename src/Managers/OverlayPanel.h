// SPDX-License-Identifier: MIT
#pragma once

#include "Panel.h"

#include <memory>

namespace sablequill {

struct AppSettings;

/// The panel of the overlay: it takes the keyboard when asked to, and never becomes the main
/// window.
class OverlayPanel {
public:
    OverlayPanel(PanelFactory& panels, const Rect& contentRect, unsigned styleMask,
        BackingStore backing, bool defer);

    static constexpr bool canBecomeKey = true;
    static constexpr bool canBecomeMain = false;

    /// Opacity, level and moving by the background, in this order.
    void applySettings(const AppSettings& settings);

    /// The desktop's panel; lives as long as this object.
    Panel& panel() const { return *platformPanel; }

private:
    std::unique_ptr<Panel> platformPanel;
};

} // namespace sablequill
