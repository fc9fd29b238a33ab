// SPDX-License-Identifier: MIT
#include "SymbolView.h"

#include <QPainter>

#include <utility>

namespace sablequill {

SymbolView::SymbolView(Symbol symbol, Ink ink, QWidget* parent)
    : QLabel(parent)
    , shownSymbol(std::move(symbol))
    , shownInk(ink)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void SymbolView::setSymbolName(const QString& name)
{
    if (std::exchange(shownSymbol.name, name) != name)
        update();
}

void SymbolView::setInk(Ink ink)
{
    if (std::exchange(shownInk, ink) != ink)
        update();
}

QSize SymbolView::sizeHint() const
{
    const int side = symbolExtent(shownSymbol.size);
    return {side, side};
}

QSize SymbolView::minimumSizeHint() const
{
    return sizeHint();
}

void SymbolView::paintEvent(QPaintEvent*)
{
    const int side = symbolExtent(shownSymbol.size);
    QPainter painter(this);
    drawSymbol(painter, QPointF((width() - side) / 2, (height() - side) / 2), shownSymbol,
        foreground(*this, shownInk));
}

} // namespace sablequill
