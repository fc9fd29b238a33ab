// SPDX-License-Identifier: MIT
#include "FormCard.h"

#include "Bands.h"
#include "DevicePixels.h"
#include "Ink.h"
#include "Layout.h"

#include <QPainter>
#include <QVBoxLayout>

namespace sablequill {
namespace {

constexpr double cornerRadius = 10;
constexpr int formPadding = 20;
constexpr int sectionSpacing = 16;

} // namespace

FormCard::FormCard(std::initializer_list<QWidget*> rows)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    for (QWidget* line : rows) {
        if (layout->count() > 0)
            layout->addWidget(padded(insets(10, 0), column(0, {divider()})));
        layout->addWidget(padded(insets(10, 8), line));
    }
}

void FormCard::paintEvent(QPaintEvent*)
{
    const Surroundings surroundings = surroundingsOf(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double thickness = hairline(painter);
    const double half = thickness / 2;
    painter.setPen(QPen(color({InkRole::divider}, surroundings), thickness));
    painter.setBrush(palette().color(QPalette::Base));
    drawRoundedRect(painter,
        onDevicePixels(painter, QRectF(rect())).adjusted(half, half, -half, -half), cornerRadius);
}

QWidget* groupedForm(std::initializer_list<QWidget*> sections)
{
    auto* form = new QWidget;
    auto* layout = new QVBoxLayout(form);
    layout->setContentsMargins(insets(formPadding));
    layout->setSpacing(sectionSpacing);
    for (QWidget* section : sections)
        layout->addWidget(section);
    layout->addStretch();
    return form;
}

} // namespace sablequill
