// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <optional>
#include <string>

namespace sablequill {

/// A panel of the program as another client sees it.
class PanelOnScreen {
public:
    /// `role` is its WM_WINDOW_ROLE. The connection outlives this object.
    PanelOnScreen(const XConnection& connection, std::string role);

    /// The window, also while it is hidden; nothing where there is none.
    std::optional<xcb_window_t> window() const;
    bool isShown() const;
    bool isAbove(xcb_window_t other) const;
    bool hasKeyboard() const;
    /// Without the shadow. Empty while there is no window.
    Area card() const;

protected:
    const XConnection& x;

private:
    std::string role;
};

} // namespace sablequill
