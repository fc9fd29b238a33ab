// SPDX-License-Identifier: MIT
#pragma once

#include "PanelOnScreen.h"
#include "Screenshot.h"

namespace sablequill {

/// The first-run guide as another client sees it.
class Guide : public PanelOnScreen {
public:
    /// The connection outlives this object.
    explicit Guide(const XConnection& connection);

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
};

} // namespace sablequill
