// SPDX-License-Identifier: MIT
#include "FocusRing.h"

#include "Bands.h"

#include <QFocusEvent>
#include <QPainter>
#include <QWidget>

namespace sablequill {
namespace {

constexpr double thickness = 2;

} // namespace

FocusRing::FocusRing(QWidget* widget)
    : widget(widget)
{
}

void FocusRing::focusChanged(const QFocusEvent& event)
{
    const Qt::FocusReason reason = event.reason();
    // A menu or another window takes the focus for a while and gives it back.
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)
        return;
    const bool isByKey = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason;
    shown = event.gotFocus() && isByKey;
    widget->update();
}

void FocusRing::paint(QPainter& painter, const QRectF& bounds, double radius, Ink ink) const
{
    if (!shown || !widget->hasFocus())
        return;
    const double inset = thickness / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color(ink, surroundingsOf(*widget)), thickness));
    drawRoundedRect(painter, bounds.adjusted(inset, inset, -inset, -inset), radius);
}

} // namespace sablequill
