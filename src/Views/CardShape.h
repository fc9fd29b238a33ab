// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

#include <functional>

class QPainter;

namespace sablequill {

/// A rectangle whose corners bend gradually instead of by an arc. Passes through the middle of the
/// arc of the same radius; where the rectangle is too small for the corners they shrink.
QPainterPath cardShape(const QRectF& rect, double radius);

/// How far along each edge a corner of such a shape bends it.
double cornerReach(double radius);

/// Calls `draw` for one flat band of `area` after the other, the painter clipped to it. The toolkit
/// spreads what it fills in more rows than that over threads, which it starts for it: that takes
/// longer than filling a card does, and wakes the program again when they end.
void drawInBands(QPainter& painter, const QRectF& area, const std::function<void()>& draw);

} // namespace sablequill
