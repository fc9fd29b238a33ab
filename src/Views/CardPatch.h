// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPixmap>
#include <QSize>

class QPainter;

namespace sablequill {

struct CardColors {
    QColor fill;
    /// The line along the inside of the edge.
    QColor line;

    bool operator==(const CardColors&) const = default;
};

/// The card with its shadow, drawn once at the smallest size that holds all of its corners; the
/// rest is stretched. So a resize draws nothing anew. Its right side is the left one mirrored.
class CardPatch {
public:
    static constexpr int cornerRadius = 14; ///< points

    /// Fills `size` (points, the painter's origin at its top left): the reach of the shadow on each
    /// side, and between them the card. `ratio` is the device's pixels per point.
    void paint(QPainter& painter, const QSize& size, double ratio, const CardColors& colors);

    /// A card of that size where nothing translucent can be shown: no shadow, and full corners,
    /// which the window's shape cuts off.
    static void paintOpaque(QPainter& painter, const QSize& size, const CardColors& colors);

private:
    void draw(const QSize& cardSize, double ratio, const CardColors& colors);
    /// The left side, in pixels.
    void paintSide(QPainter& painter, int width, int height) const;

    /// The left half and one column more.
    QPixmap pixmap;
    QSize drawnCard;
    double ratio = 0;
    CardColors colors;
};

} // namespace sablequill
