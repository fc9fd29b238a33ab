// SPDX-License-Identifier: MIT
#pragma once

#include <QRectF>

#include <functional>

class QPaintEvent;
class QPainter;

namespace sablequill {

/// Calls `draw` for one flat band of `area` after the other, the painter clipped to it. The toolkit
/// spreads what it fills in more rows than that over threads, which it starts for it: that takes
/// longer than filling a card does, and wakes the program again when they end. Bands that the
/// painter's clip leaves out are not drawn.
void drawInBands(QPainter& painter, const QRectF& area, const std::function<void()>& draw);

/// Clips a view's painter to what is painted anew, and a point more on each side, as its edges may
/// lie between pixels of the device: a painter itself does not tell what that is.
void clipToUpdate(QPainter& painter, const QPaintEvent& event);

/// The painter's brush and pen, in such bands.
void drawRoundedRect(QPainter& painter, const QRectF& rect, double radius);

} // namespace sablequill
