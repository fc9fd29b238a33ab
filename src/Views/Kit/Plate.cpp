// SPDX-License-Identifier: MIT
#include "Plate.h"

#include "Bands.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>

namespace sablequill {

Plate::Plate(Ink fill, double radius, QMargins padding, QWidget* content)
    : fill(fill)
    , radius(radius)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(padding);
    layout->addWidget(content);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Plate::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(fill, surroundingsOf(*this)));
    const double corner = std::min(radius, height() / 2.0);
    drawRoundedRect(painter, rect(), corner);
}

} // namespace sablequill
