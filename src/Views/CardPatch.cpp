// SPDX-License-Identifier: MIT
#include "CardPatch.h"

#include "Bands.h"
#include "CardShadow.h"
#include "CardShape.h"
#include "KeptPixmap.h"

#include <QPainter>

#include <algorithm>
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

/// The rows of a card: at the top and at the bottom the corners bend what is drawn, and between
/// them everything is straight, which takes the toolkit far less work.
struct Rows {
    Rows(const QRectF& card, double ratio)
    {
        const double bent = std::min(
            std::ceil(cornerReach(CardPatch::cornerRadius * ratio)), std::floor(card.height() / 2));
        top = bottom = straight = card;
        top.setHeight(bent);
        bottom.setTop(card.bottom() - bent);
        straight.adjust(0, bent, 0, -bent);
    }

    QRectF top;
    QRectF straight;
    QRectF bottom;
};

/// `ratio` units thick.
void paintLine(QPainter& painter, const QRectF& card, const QColor& color, double ratio)
{
    const double half = ratio / 2;
    const QPainterPath line =
        cardShape(card.adjusted(half, half, -half, -half), CardPatch::cornerRadius * ratio - half);
    painter.setRenderHint(QPainter::Antialiasing);
    const Rows rows(card, ratio);
    for (const QRectF& bent : {rows.top, rows.bottom})
        drawInBands(painter, bent, [&] { painter.strokePath(line, QPen(color, ratio)); });
    drawInBands(painter, rows.straight, [&] {
        painter.fillRect(QRectF(card.topLeft(), QSizeF(ratio, card.height())), color);
        painter.fillRect(card.adjusted(card.width() - ratio, 0, 0, 0), color);
    });
}

/// A length in three parts, of which only the middle one is stretched.
struct Cut {
    Cut(int length, int drawn)
        : first(drawn / 2)
        , last((drawn - 1) / 2)
        , middle(length - first - last)
    {
    }

    int first;
    int last;
    int middle;
};

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
    const QSize drawn = pixels(smallest.grownBy(cardShadowReach()), ratio);
    const Cut x(whole.width(), drawn.width());
    const Cut y(whole.height(), drawn.height());
    const QRect inside(x.first, y.first, x.middle, y.middle);
    drawInBands(painter, inside, [&] { painter.fillRect(inside, colors.fill); });
    painter.drawPixmap(QRect(x.first, 0, x.middle, y.first), pixmap, QRect(x.first, 0, 1, y.first));
    painter.drawPixmap(QRect(x.first, y.first + y.middle, x.middle, y.last), pixmap,
        QRect(x.first, y.first + 1, 1, y.last));
    paintSide(painter, x.first, whole.height());
    painter.translate(whole.width(), 0);
    painter.scale(-1, 1);
    paintSide(painter, x.last, whole.height());
    painter.restore();
}

void CardPatch::paintSide(QPainter& painter, int width, int height) const
{
    const Cut y(height, pixmap.height());
    painter.drawPixmap(QRect(0, 0, width, y.first), pixmap, QRect(0, 0, width, y.first));
    painter.drawPixmap(QRect(0, y.first, width, y.middle), pixmap, QRect(0, y.first, width, 1));
    painter.drawPixmap(
        QRect(0, y.first + y.middle, width, y.last), pixmap, QRect(0, y.first + 1, width, y.last));
}

void CardPatch::draw(const QSize& cardSize, double nextRatio, const CardColors& nextColors)
{
    drawnCard = cardSize;
    ratio = nextRatio;
    colors = nextColors;
    const QMargins reach = cardShadowReach();
    const QSize whole = pixels(cardSize.grownBy(reach), ratio);
    pixmap = QPixmap(Cut(whole.width(), whole.width()).first + 1, whole.height());
    pixmap.fill(Qt::transparent);
    // The card's edges fall between two pixels of the device, at a fractional ratio too.
    const QRectF card = QRect(QPoint(), whole).marginsRemoved(pixels(reach, ratio));

    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    paintCardShadow(painter, card, ratio);
    const QPainterPath shape = cardShape(card, cornerRadius * ratio);
    const Rows rows(card, ratio);
    for (const QRectF& bent : {rows.top, rows.bottom})
        drawInBands(painter, bent, [&] {
            painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
            painter.fillPath(shape, Qt::black);
            painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
            painter.fillPath(shape, colors.fill);
        });
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    drawInBands(painter, rows.straight, [&] { painter.fillRect(card, colors.fill); });
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    paintLine(painter, card, colors.line, ratio);
    painter.end();
    pixmap = keptPixmap(pixmap);
}

void CardPatch::paintOpaque(QPainter& painter, const QSize& size, const CardColors& colors)
{
    const QRect card(QPoint(), size);
    drawInBands(painter, card, [&] { painter.fillRect(card, colors.fill); });
    paintLine(painter, card, colors.line, 1);
}

} // namespace sablequill
