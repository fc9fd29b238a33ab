// SPDX-License-Identifier: MIT
#pragma once

#include <QPainter>
#include <QPointF>
#include <QRectF>

namespace sablequill {

// Where a point is no whole number of the device's pixels, what is drawn at whole points falls
// between them, here more and there less. All in points.

/// The place nearest to one that lies on an edge between pixels of the painter's device.
QPointF onDevicePixels(const QPainter& painter, const QPointF& place);
QRectF onDevicePixels(const QPainter& painter, const QRectF& rect);

/// The thickness of a line of one point: whole pixels, no more than fit into it, one at least.
double hairline(const QPainter& painter);

/// Fills a hairline along the top of `rect`, everywhere equally thick.
void fillHairline(QPainter& painter, const QRectF& rect, const QColor& color);

} // namespace sablequill
