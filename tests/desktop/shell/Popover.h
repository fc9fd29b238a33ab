// SPDX-License-Identifier: MIT
#pragma once

#include "PanelOnScreen.h"
#include "Screenshot.h"

#include <vector>

namespace sablequill {

/// The main actions in their order in the popover.
enum class PopoverAction { showOverlay, toggleOverlay, newNote, settings, quit };

/// The program's popover as another client sees it. Where things are in it is read off the screen:
/// three dividers, and rows of equal height between them.
class Popover : public PanelOnScreen {
public:
    /// The connection outlives this object.
    explicit Popover(const XConnection& connection);

    /// The card as the screen shows it, once it has stopped changing.
    QImage steadyPicture() const;

    // All of the following wait for the popover to be on the screen, throw std::runtime_error when
    // it is not, and are in the root's coordinates.

    Area header() const;
    Area notesSection() const;
    /// A list of up to five notes.
    Point note(int index, int count) const;
    Point action(PopoverAction action) const;

private:
    struct Layout {
        Area card;
        /// From the card's top.
        std::vector<int> dividers;
    };

    Layout layout() const;
    Area section(int index) const;
};

} // namespace sablequill
