// SPDX-License-Identifier: MIT
#pragma once

#include "PanelOnScreen.h"
#include "Screenshot.h"

namespace sablequill {

/// The program's overlay as another client sees it.
class Overlay : public PanelOnScreen {
public:
    /// The connection outlives this object.
    explicit Overlay(const XConnection& connection);

    /// Its opacity as other clients are told, 1 when they are told nothing.
    double opacity() const;
    /// The card as the screen shows it, once it has stopped changing.
    QImage steadyPicture() const;

    // Places in the card, in the root's coordinates.

    /// The bar with the note's title.
    Area header() const;
    /// Between the header's title and its badge: background of the panel.
    Point headerBackground() const;
    /// Between the counter and the New button: background of the panel.
    Point footerBackground() const;
    /// In the text area, below a text of a few lines.
    Point contentBackground() const;
    /// The header's two buttons.
    Point editButton() const;
    Point hideButton() const;
    /// The footer's buttons.
    Point previousButton() const;
    Point newButton() const;
};

} // namespace sablequill
