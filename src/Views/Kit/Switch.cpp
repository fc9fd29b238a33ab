// SPDX-License-Identifier: MIT
#include "Switch.h"

#include "Bands.h"
#include "Ink.h"

#include <QKeyEvent>
#include <QPainter>

namespace sablequill {
namespace {

constexpr QSize trackSize(36, 20);
constexpr double knobInset = 2;
constexpr int slideMilliseconds = 120;

} // namespace

Switch::Switch(QWidget* parent)
    : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    slide.setDuration(slideMilliseconds);
    slide.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&slide, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        position = value.toDouble();
        update();
    });
}

QSize Switch::sizeHint() const
{
    return trackSize;
}

void Switch::checkStateSet()
{
    moveKnob(false);
}

void Switch::nextCheckState()
{
    QAbstractButton::nextCheckState();
    moveKnob(true);
}

void Switch::moveKnob(bool isAnimated)
{
    const double target = isChecked() ? 1 : 0;
    slide.stop();
    if (!isAnimated || !isVisible()) {
        position = target;
        update();
        return;
    }
    slide.setStartValue(1 - target);
    slide.setEndValue(target);
    slide.start();
}

void Switch::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void Switch::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    ring.focusChanged(*event);
}

void Switch::focusOutEvent(QFocusEvent* event)
{
    QAbstractButton::focusOutEvent(event);
    ring.focusChanged(*event);
}

void Switch::paintEvent(QPaintEvent*)
{
    const Surroundings surroundings = surroundingsOf(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double radius = height() / 2.0;
    painter.setBrush(color({InkRole::primary, 0.18}, surroundings));
    drawRoundedRect(painter, rect(), radius);
    painter.setBrush(color({InkRole::accent, position}, surroundings));
    drawRoundedRect(painter, rect(), radius);
    const double knob = height() - 2 * knobInset;
    const double left = knobInset + position * (width() - 2 * knobInset - knob);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QRectF(left, knobInset, knob, knob));
    ring.paint(painter, rect(), radius);
}

} // namespace sablequill
