// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QRectF>

class QPainter;

namespace sablequill {

/// How far the card's shadow shows beyond each edge of the card, in points.
QMargins cardShadowReach();
/// Black at 0.45, blurred with a radius of 28 points, 12 points lower than the card. `ratio` is the
/// painter's units per point.
void paintCardShadow(QPainter& painter, const QRectF& card, double ratio);

} // namespace sablequill
