// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QFont>
#include <QPixmap>
#include <QString>

class QPainter;

namespace sablequill {

/// One of the drawings in resources/symbols, set like a letter: by point size and weight.
struct Symbol {
    QString name;
    double size = 13; ///< points
    QFont::Weight weight = QFont::Normal;

    bool operator==(const Symbol&) const = default;
};

/// The side of a symbol's square in points; even, so that it can stand in the middle of an even
/// frame.
int symbolExtent(double pointSize);
/// The symbol in one color, sharp at the given ratio. Drawn once and kept; null for an unknown
/// name.
QPixmap symbolPixmap(const Symbol& symbol, const QColor& color, double devicePixelRatio);
/// Draws the symbol's square from its top-left corner on, sharp wherever that falls on the device.
void drawSymbol(
    QPainter& painter, const QPointF& corner, const Symbol& symbol, const QColor& color);

} // namespace sablequill
