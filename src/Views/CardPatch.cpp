// SPDX-License-Identifier: MIT
#include "CardPatch.h"

#include "CardShadow.h"
#include "CardShape.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace sablequill {
namespace {

// From each edge of the card inwards, in points: beyond this the card's corner and the corner of
// its shadow (which lies lower) no longer bend what is drawn.
constexpr int horizontalBend = 64;
constexpr int verticalBend = 76;

int pixels(double points, double ratio)
{
    return static_cast<int>(std::lround(points * ratio));
}

QMargins pixels(const QMargins& points, double ratio)
{
    return {pixels(points.left(), ratio), pixels(points.top(), ratio),
        pixels(points.right(), ratio), pixels(points.bottom(), ratio)};
}

QSize pixels(const QSize& points, double ratio)
{
    return {pixels(points.width(), ratio), pixels(points.height(), ratio)};
}

/// `ratio` units thick.
void paintLine(QPainter& painter, const QRectF& card, const QColor& color, double ratio)
{
    const double half = ratio / 2;
    const QPainterPath line =
        cardShape(card.adjusted(half, half, -half, -half), CardPatch::cornerRadius * ratio - half);
    painter.setRenderHint(QPainter::Antialiasing);
    drawInBands(painter, card, [&] { painter.strokePath(line, QPen(color, ratio)); });
}

/// The edges of the three parts of a length: two keep their size, the middle one is stretched.
std::array<int, 4> cuts(int length, int drawn)
{
    return {0, drawn / 2, length - (drawn - 1) / 2, length};
}

} // namespace

void CardPatch::paint(
    QPainter& painter, const QSize& size, double nextRatio, const CardColors& nextColors)
{
    const QSize card = size.shrunkBy(cardShadowReach());
    if (card.isEmpty())
        return;
    const QSize smallest = card.boundedTo({2 * horizontalBend + 2, 2 * verticalBend + 2});
    if (smallest != drawnCard || nextRatio != ratio || nextColors != colors)
        draw(smallest, nextRatio, nextColors);

    // In the device's own pixels, so that no seam shows between the parts at a fractional ratio.
    painter.save();
    painter.scale(1 / ratio, 1 / ratio);
    const QSize whole = pixels(size, ratio);
    const auto x = cuts(whole.width(), pixmap.width());
    const auto y = cuts(whole.height(), pixmap.height());
    const auto fromX = cuts(pixmap.width(), pixmap.width());
    const auto fromY = cuts(pixmap.height(), pixmap.height());
    for (int part = 0; part < 9; ++part) {
        const int column = part % 3;
        const int line = part / 3;
        const QRect to(
            QPoint(x[column], y[line]), QPoint(x[column + 1], y[line + 1]) - QPoint(1, 1));
        const QRect from(QPoint(fromX[column], fromY[line]),
            QPoint(fromX[column + 1], fromY[line + 1]) - QPoint(1, 1));
        if (part == 4)
            drawInBands(painter, to, [&] { painter.fillRect(to, colors.fill); });
        else
            painter.drawPixmap(to, pixmap, from);
    }
    painter.restore();
}

void CardPatch::draw(const QSize& cardSize, double nextRatio, const CardColors& nextColors)
{
    drawnCard = cardSize;
    ratio = nextRatio;
    colors = nextColors;
    const QMargins reach = cardShadowReach();
    pixmap = QPixmap(pixels(cardSize.grownBy(reach), ratio));
    pixmap.fill(Qt::transparent);
    // The card's edges fall between two pixels of the device, at a fractional ratio too.
    const QRectF card = QRect(QPoint(), pixmap.size()).marginsRemoved(pixels(reach, ratio));

    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintCardShadow(painter, card, ratio);
    const QPainterPath shape = cardShape(card, cornerRadius * ratio);
    drawInBands(painter, card, [&] {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
        painter.fillPath(shape, Qt::black);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.fillPath(shape, colors.fill);
    });
    paintLine(painter, card, colors.line, ratio);
}

void CardPatch::paintOpaque(QPainter& painter, const QSize& size, const CardColors& colors)
{
    const QRect card(QPoint(), size);
    drawInBands(painter, card, [&] { painter.fillRect(card, colors.fill); });
    paintLine(painter, card, colors.line, 1);
}

} // namespace sablequill
