// SPDX-License-Identifier: MIT
#pragma once

#include "Screenshot.h"
#include "XConnection.h"

#include <optional>

namespace sablequill {

/// The first-run guide as another client sees it.
class Guide {
public:
    /// The connection outlives this object.
    explicit Guide(const XConnection& connection);

    /// The window; nothing while there is no guide.
    std::optional<xcb_window_t> window() const;
    bool isShown() const;
    bool hasKeyboard() const;
    /// Empty while there is no window.
    Area card() const;
    /// What the current page shows, without the buttons.
    QImage page() const;
    /// The same once it has stopped changing.
    QImage steadyPage() const;

    // Places in the guide, in the root's coordinates.

    /// "Continue", and "Get Started" on the last page.
    Point forwardButton() const;
    Point backButton() const;

private:
    Area pageArea() const;

    const XConnection& x;
};

} // namespace sablequill
