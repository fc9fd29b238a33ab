// SPDX-License-Identifier: MIT
#include "PanelCard.h"

#include "CardPatch.h"
#include "CardShadow.h"
#include "CardShape.h"
#include "Ink.h"
#include "RoundedRegion.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace sablequill {

PanelCard::PanelCard(QWidget* content)
    : content(content)
{
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->setContentsMargins(shadowReach());
    layout->addWidget(content);
}

QSize PanelCard::contentSize() const
{
    return content->sizeHint().expandedTo(content->minimumSize()).boundedTo(content->maximumSize());
}

QMargins PanelCard::shadowReach() const
{
    return isComposited ? cardShadowReach() : QMargins();
}

QRegion PanelCard::shape(const QRect& card) const
{
    return roundedRegion(card, CardPatch::cornerRadius);
}

void PanelCard::setComposited(bool next)
{
    isComposited = next;
    layout()->setContentsMargins(shadowReach());
    picture = QPixmap();
    update();
}

void PanelCard::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange)
        picture = QPixmap();
    QWidget::changeEvent(event);
}

void PanelCard::paintEvent(QPaintEvent*)
{
    const double ratio = devicePixelRatioF();
    if (picture.isNull() || picture.size() != size() * ratio)
        picture = drawn();
    QPainter(this).drawPixmap(0, 0, picture);
}

QPixmap PanelCard::drawn() const
{
    const double ratio = devicePixelRatioF();
    QPixmap pixmap(size() * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF card = rect().marginsRemoved(shadowReach());
    if (isComposited)
        paintCardShadow(painter, card, 1);
    const QColor ground = palette().color(QPalette::Window);
    constexpr double radius = CardPatch::cornerRadius;
    const QPainterPath shape = cardShape(card, radius);
    const QPainterPath edge = cardShape(card.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5);
    const QPen line(color({InkRole::divider, 1.5}, surroundingsOf(*this)), 1);
    drawInBands(painter, card, [&] {
        if (isComposited)
            painter.fillPath(shape, ground);
        else
            painter.fillRect(card, ground);
        painter.strokePath(edge, line);
    });
    return pixmap;
}

} // namespace sablequill
