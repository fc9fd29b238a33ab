// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>

namespace sablequill {

/// A rectangle whose corners bend gradually instead of by an arc. Passes through the middle of the
/// arc of the same radius; where the rectangle is too small for the corners they shrink.
QPainterPath cardShape(const QRectF& rect, double radius);

/// How far along each edge a corner of such a shape bends it.
double cornerReach(double radius);

} // namespace sablequill
