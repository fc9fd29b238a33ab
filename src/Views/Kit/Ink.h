// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPalette>

class QWidget;

namespace sablequill {

/// Whether a view is drawn for a dark or a light surrounding.
enum class Surroundings { light, dark };

/// What a color is for; which color it is follows the surroundings.
enum class InkRole {
    clear,
    white,
    black,
    primary,
    secondary,
    tertiary,
    divider,
    green,
    accent,
    red
};

/// A color by its purpose. The opacity (a fraction of 1) multiplies the role's own.
struct Ink {
    InkRole role = InkRole::primary;
    double opacity = 1;

    bool operator==(const Ink&) const = default;
};

QColor color(Ink ink, Surroundings surroundings);

/// The palette of a window. A view takes it once; everything in it follows.
QPalette paletteFor(Surroundings surroundings);
/// As told by the widget's palette, which it inherits from its window.
Surroundings surroundingsOf(const QWidget& widget);

/// The color of a symbol or a text in `widget`. Inside a plain button it answers the pointer:
/// brighter under it, dimmer while pressed, faint when disabled.
QColor foreground(const QWidget& widget, Ink ink);

} // namespace sablequill
