// SPDX-License-Identifier: MIT
#include "Bands.h"

#include <QPaintEvent>
#include <QPainter>

namespace sablequill {
namespace {

/// Rows. The toolkit counts spans, of which a smooth outline makes several in a row.
constexpr int bandHeight = 8;

} // namespace

void drawInBands(QPainter& painter, const QRectF& area, const std::function<void()>& draw)
{
    QRect whole = area.toAlignedRect();
    if (painter.hasClipping())
        whole &= painter.clipBoundingRect().toAlignedRect();
    for (int y = whole.top(); y <= whole.bottom(); y += bandHeight) {
        painter.save();
        painter.setClipRect(
            whole & QRect(whole.left(), y, whole.width(), bandHeight), Qt::IntersectClip);
        draw();
        painter.restore();
    }
}

void clipToUpdate(QPainter& painter, const QPaintEvent& event)
{
    painter.setClipRect(event.rect().adjusted(-1, -1, 1, 1));
}

void drawRoundedRect(QPainter& painter, const QRectF& rect, double radius)
{
    // Half of the pen lies outside.
    const double half = painter.pen().style() == Qt::NoPen ? 0 : painter.pen().widthF() / 2;
    drawInBands(painter, rect.adjusted(-half, -half, half, half),
        [&] { painter.drawRoundedRect(rect, radius, radius); });
}

} // namespace sablequill
