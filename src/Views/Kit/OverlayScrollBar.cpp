// SPDX-License-Identifier: MIT
#include "OverlayScrollBar.h"

#include "Bands.h"
#include "Ink.h"

#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace sablequill {
namespace {

// Points. The bar keeps off the window's edge, where a press resizes the window.
constexpr int reach = 10;
constexpr int edgeInset = 5;
constexpr int endInset = 4;
constexpr double thickness = 4;
constexpr double shortestThumb = 24;

} // namespace

OverlayScrollBar::OverlayScrollBar(QAbstractScrollArea* area)
    : QWidget(area)
    , area(area)
{
    setCursor(Qt::ArrowCursor);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->installEventFilter(this);
    const QScrollBar* bar = area->verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, qOverload<>(&QWidget::update));
    connect(bar, &QScrollBar::rangeChanged, this, &OverlayScrollBar::layOut);
    layOut();
}

QRectF OverlayScrollBar::thumb() const
{
    const QScrollBar* bar = area->verticalScrollBar();
    const double range = bar->maximum() - bar->minimum();
    const double whole = range + bar->pageStep();
    if (range <= 0)
        return {};
    const double length = std::max(shortestThumb, height() * bar->pageStep() / whole);
    const double top = (height() - length) * (bar->value() - bar->minimum()) / range;
    return {width() - thickness - 1, top, thickness, length};
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == area && event->type() == QEvent::Resize)
        layOut();
    return QWidget::eventFilter(watched, event);
}

void OverlayScrollBar::enterEvent(QEnterEvent*)
{
    update();
}

void OverlayScrollBar::leaveEvent(QEvent*)
{
    update();
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const double y = event->position().y();
    const QRectF now = thumb();
    const bool isOnThumb = y >= now.top() && y <= now.bottom();
    grip = isOnThumb ? y - now.top() : now.height() / 2;
    isDragged = true;
    scrollTo(y - grip);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    if (isDragged)
        scrollTo(event->position().y() - grip);
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent*)
{
    isDragged = false;
    update();
}

void OverlayScrollBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double opacity = isDragged || underMouse() ? 0.55 : 0.28;
    painter.setBrush(color({InkRole::primary, opacity}, surroundingsOf(*this)));
    drawRoundedRect(painter, thumb(), thickness / 2);
}

void OverlayScrollBar::layOut()
{
    const int height = std::max(0, area->height() - 2 * endInset);
    setGeometry(area->width() - edgeInset - reach, endInset, reach, height);
    const QScrollBar* bar = area->verticalScrollBar();
    setVisible(bar->maximum() > bar->minimum());
    raise();
    update();
}

void OverlayScrollBar::scrollTo(double thumbTop)
{
    QScrollBar* bar = area->verticalScrollBar();
    const double way = height() - thumb().height();
    if (way <= 0)
        return;
    const double part = std::clamp(thumbTop / way, 0.0, 1.0);
    bar->setValue(
        bar->minimum() + static_cast<int>(std::lround(part * (bar->maximum() - bar->minimum()))));
    update();
}

} // namespace sablequill
