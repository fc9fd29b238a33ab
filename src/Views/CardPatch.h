// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QSize>

class QPainter;

namespace sablequill {

/// The card with its shadow, drawn once at the smallest size that holds all of its corners; the
/// rest is stretched. So a resize draws nothing anew.
class CardPatch {
public:
    static constexpr int cornerRadius = 14;
    static constexpr float fillOpacity = 0.72F;
    static constexpr float strokeOpacity = 0.14F;

    /// Fills `size` (points, the painter's origin at its top left): the reach of the shadow on each
    /// side, and between them the card. `ratio` is the device's pixels per point.
    void paint(QPainter& painter, const QSize& size, double ratio);

    /// The line along the inside of the card's edge; `ratio` units thick.
    static void paintStroke(QPainter& painter, const QRectF& card, double ratio);

private:
    void draw(const QSize& cardSize, double ratio);

    QPixmap pixmap;
    QSize drawnCard;
    double ratio = 0;
};

} // namespace sablequill
