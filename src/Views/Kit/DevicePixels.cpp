// SPDX-License-Identifier: MIT
#include "DevicePixels.h"

#include <algorithm>
#include <cmath>

namespace sablequill {

QPointF onDevicePixels(const QPainter& painter, const QPointF& place)
{
    const QTransform toDevice = painter.deviceTransform();
    return toDevice.inverted().map(QPointF(toDevice.map(place).toPoint()));
}

QRectF onDevicePixels(const QPainter& painter, const QRectF& rect)
{
    return {onDevicePixels(painter, rect.topLeft()), onDevicePixels(painter, rect.bottomRight())};
}

double hairline(const QPainter& painter)
{
    const double pixelsOfAPoint = painter.deviceTransform().m11();
    return std::max(1.0, std::floor(pixelsOfAPoint)) / pixelsOfAPoint;
}

void fillHairline(QPainter& painter, const QRectF& rect, const QColor& color)
{
    const QPointF corner = onDevicePixels(painter, rect.topLeft());
    painter.fillRect(QRectF(corner, QSizeF(rect.width(), hairline(painter))), color);
}

} // namespace sablequill
