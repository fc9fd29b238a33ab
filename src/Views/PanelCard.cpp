// SPDX-License-Identifier: MIT
#include "PanelCard.h"

#include "Bands.h"
#include "CardShadow.h"
#include "Ink.h"
#include "RoundedRegion.h"

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
    update();
}

void PanelCard::paintEvent(QPaintEvent* event)
{
    const CardColors colors{
        palette().color(QPalette::Window), color({InkRole::divider, 1.5}, surroundingsOf(*this))};
    QPainter painter(this);
    clipToUpdate(painter, *event);
    if (isComposited)
        patch.paint(painter, size(), devicePixelRatioF(), colors);
    else
        CardPatch::paintOpaque(painter, size(), colors);
}

} // namespace sablequill
