// SPDX-License-Identifier: MIT
#include "OverlayChrome.h"

#include "Bands.h"
#include "CardShadow.h"
#include "CardShape.h"
#include "Ink.h"

#include <QPainter>
#include <QVBoxLayout>

namespace sablequill {

OverlayChrome::OverlayChrome(QWidget* content)
{
    setPalette(paletteFor(Surroundings::dark));
    auto* layout = new QVBoxLayout(this);
    // The panel's frame is what counts, also when it is smaller than the content would like.
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->setContentsMargins(shadowReach());
    layout->addWidget(content);
}

QMargins OverlayChrome::shadowReach() const
{
    return isComposited ? cardShadowReach() : QMargins();
}

void OverlayChrome::setComposited(bool next)
{
    isComposited = next;
    layout()->setContentsMargins(shadowReach());
    update();
}

QPainterPath OverlayChrome::shapeIn(const QWidget& widget)
{
    const QWidget* ancestor = widget.parentWidget();
    while (ancestor && !qobject_cast<const OverlayChrome*>(ancestor))
        ancestor = ancestor->parentWidget();
    if (!ancestor)
        return {};
    const auto* chrome = static_cast<const OverlayChrome*>(ancestor);
    return cardShape(chrome->card(), CardPatch::cornerRadius)
        .translated(-QPointF(widget.mapTo(chrome, QPoint())));
}

void OverlayChrome::paintEvent(QPaintEvent* event)
{
    const QColor line = QColor::fromRgbF(1, 1, 1, 0.14F);
    QPainter painter(this);
    clipToUpdate(painter, *event);
    if (isComposited)
        patch.paint(painter, size(), devicePixelRatioF(), {QColor::fromRgbF(0, 0, 0, 0.72F), line});
    else
        CardPatch::paintOpaque(painter, size(), {palette().color(QPalette::Window), line});
}

QRect OverlayChrome::card() const
{
    return rect().marginsRemoved(shadowReach());
}

} // namespace sablequill
