// SPDX-License-Identifier: MIT
#include "Symbol.h"

#include "DevicePixels.h"
#include "KeptPixmap.h"

#include <QFile>
#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace sablequill {
namespace {

/// In units of the drawings' square, so that a stroke is as thick as a letter's stem.
const char* strokeWidth(QFont::Weight weight)
{
    switch (weight) {
    case QFont::Light:
        return "1.1";
    case QFont::Medium:
        return "2.1";
    case QFont::DemiBold:
        return "2.5";
    case QFont::Bold:
        return "2.9";
    default:
        return "1.8";
    }
}

QByteArray drawing(const Symbol& symbol)
{
    QFile file(QStringLiteral(":/symbols/%1.svg").arg(symbol.name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray weighted = QByteArray("stroke-width=\"") + strokeWidth(symbol.weight) + '"';
    return file.readAll().replace("stroke-width=\"2\"", weighted);
}

QPixmap draw(const Symbol& symbol, const QColor& color, double ratio)
{
    QSvgRenderer renderer(drawing(symbol));
    if (!renderer.isValid())
        return {};
    const int side = static_cast<int>(std::ceil(symbolExtent(symbol.size) * ratio));
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(pixmap.rect(), color);
    painter.end();
    pixmap = keptPixmap(pixmap);
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

QString cacheKey(const Symbol& symbol, const QColor& color, double ratio)
{
    return QStringLiteral("symbol %1 %2 %3 %4 %5")
        .arg(symbol.name)
        .arg(symbol.size)
        .arg(symbol.weight)
        .arg(color.rgba(), 0, 16)
        .arg(ratio);
}

} // namespace

int symbolExtent(double pointSize)
{
    return 2 * static_cast<int>(std::lround(pointSize * 0.625));
}

QPixmap symbolPixmap(const Symbol& symbol, const QColor& color, double devicePixelRatio)
{
    // Few, and for good: the toolkit's own cache wakes the program to look what it may forget.
    static QHash<QString, QPixmap> drawn;
    const QString key = cacheKey(symbol, color, devicePixelRatio);
    QPixmap& pixmap = drawn[key];
    if (pixmap.isNull())
        pixmap = draw(symbol, color, devicePixelRatio);
    return pixmap;
}

void drawSymbol(QPainter& painter, const QPointF& corner, const Symbol& symbol, const QColor& color)
{
    painter.drawPixmap(onDevicePixels(painter, corner),
        symbolPixmap(symbol, color, painter.device()->devicePixelRatioF()));
}

} // namespace sablequill
