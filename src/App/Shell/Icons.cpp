// SPDX-License-Identifier: MIT
#include "Icons.h"

#include "Symbol.h"

#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

namespace sablequill {
namespace {

constexpr std::initializer_list<int> iconSides{16, 22, 24, 32, 48, 64};

QPixmap clearPixmap(int side)
{
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

QPixmap tinted(QPixmap pixmap, const QColor& color)
{
    QPainter painter(&pixmap);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    painter.end();
    return pixmap;
}

QPixmap statusPixmap(int side)
{
    const Symbol symbol{QStringLiteral("note.text"), 13, QFont::DemiBold};
    // The rim takes a sixteenth of the side all round.
    const double rim = side / 16.0;
    const double ratio = (side - 2 * rim) / symbolExtent(symbol.size);
    QPixmap white = symbolPixmap(symbol, Qt::white, ratio);
    white.setDevicePixelRatio(1);
    const QPixmap dark = tinted(white, Qt::black);

    QPixmap pixmap = clearPixmap(side);
    QPainter painter(&pixmap);
    painter.setOpacity(0.35);
    for (const double dx : {-rim, 0.0, rim})
        for (const double dy : {-rim, 0.0, rim})
            painter.drawPixmap(QPointF(rim + dx, rim + dy), dark);
    painter.setOpacity(1);
    painter.drawPixmap(QPointF(rim, rim), white);
    return pixmap;
}

/// Draws each size when it is asked for: most status areas want one, and without one nobody asks.
class StatusIconEngine final : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode, QIcon::State) override
    {
        const int side = std::min(rect.width(), rect.height());
        QRect square(0, 0, side, side);
        square.moveCenter(rect.center());
        const double ratio = painter->device()->devicePixelRatioF();
        painter->drawPixmap(square, statusPixmap(qRound(side * ratio)));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        return statusPixmap(std::min(size.width(), size.height()));
    }

    QIconEngine* clone() const override { return new StatusIconEngine; }
};

} // namespace

QIcon applicationIcon()
{
    QIcon icon;
    QSvgRenderer drawing(QStringLiteral(":/icon/io.github.sablequill.Sablequill.svg"));
    for (const int side : iconSides) {
        QPixmap pixmap = clearPixmap(side);
        QPainter painter(&pixmap);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

QIcon statusIcon()
{
    return QIcon(new StatusIconEngine);
}

} // namespace sablequill
