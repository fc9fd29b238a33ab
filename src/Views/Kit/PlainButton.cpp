// SPDX-License-Identifier: MIT
#include "PlainButton.h"

#include "Bands.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr Ink hoverWash{InkRole::primary, 0.08};
constexpr Ink pressWash{InkRole::primary, 0.16};

} // namespace

PlainButton::PlainButton(QWidget* label, Backdrop backdrop, std::function<void()> action)
    : backdrop(backdrop)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label, 0,
        label->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed ? Qt::AlignCenter
                                                                     : Qt::Alignment());
    // A click leaves the keyboard where it is, in the editor for one.
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this, std::move(action));
}

const PlainButton* PlainButton::around(const QWidget& widget)
{
    const QWidget* candidate = &widget;
    while (candidate && !qobject_cast<const PlainButton*>(candidate))
        candidate = candidate->isWindow() ? nullptr : candidate->parentWidget();
    return static_cast<const PlainButton*>(candidate);
}

bool PlainButton::event(QEvent* event)
{
    if (event->type() == QEvent::Enter)
        setHovered(true);
    else if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
        setHovered(false);
    return QAbstractButton::event(event);
}

void PlainButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void PlainButton::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    ring.focusChanged(*event);
}

void PlainButton::focusOutEvent(QFocusEvent* event)
{
    QAbstractButton::focusOutEvent(event);
    ring.focusChanged(*event);
}

void PlainButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool isCircle = backdrop.shape == Backdrop::Shape::circle;
    const QRect area = rect().adjusted(backdrop.inset, 0, -backdrop.inset, 0);
    const double radius = isCircle ? std::min(width(), height()) / 2.0 : backdrop.radius;
    const auto fill = [&](Ink ink) {
        painter.setBrush(color(ink, surroundingsOf(*this)));
        drawRoundedRect(painter, area, radius);
    };
    if (backdrop.shape != Backdrop::Shape::none) {
        fill(backdrop.fill);
        if (isDown())
            fill(pressWash);
        else if (hovered && isEnabled())
            fill(hoverWash);
    }
    ring.paint(painter, area, radius);
}

void PlainButton::setHovered(bool isHovered)
{
    if (std::exchange(hovered, isHovered) != isHovered)
        update();
}

} // namespace sablequill
