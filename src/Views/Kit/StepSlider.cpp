// SPDX-License-Identifier: MIT
#include "StepSlider.h"

#include "Ink.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace sablequill {
namespace {

constexpr double knobDiameter = 18;
constexpr double trackHeight = 4;
constexpr int wheelNotch = 120;
/// A page of keys goes through the whole range in about six.
constexpr int pages = 6;

} // namespace

StepSlider::StepSlider(int least, int most, int step, QWidget* parent)
    : QAbstractSlider(parent)
{
    setRange(least, most);
    setSingleStep(step);
    setPageStep(step * std::max(1, (most - least) / step / pages));
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(this, &QAbstractSlider::valueChanged, this, [this] { update(); });
}

int StepSlider::nearestStep(double value) const
{
    const double inRange = std::clamp<double>(value, minimum(), maximum());
    const long step = std::lround((inRange - minimum()) / singleStep());
    return minimum() + static_cast<int>(step) * singleStep();
}

double StepSlider::knobCenter(int value) const
{
    const double fraction = static_cast<double>(value - minimum()) / (maximum() - minimum());
    return knobDiameter / 2 + (width() - knobDiameter) * fraction;
}

QSize StepSlider::sizeHint() const
{
    return {160, 20};
}

void StepSlider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setSliderDown(true);
    moveTo(event->position().x());
}

void StepSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (isSliderDown())
        moveTo(event->position().x());
}

void StepSlider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        setSliderDown(false);
}

void StepSlider::wheelEvent(QWheelEvent* event)
{
    wheelTravel += event->angleDelta().y() - event->angleDelta().x();
    const int steps = wheelTravel / wheelNotch;
    wheelTravel -= steps * wheelNotch;
    setValue(value() + steps * singleStep());
    event->accept();
}

void StepSlider::focusInEvent(QFocusEvent* event)
{
    QAbstractSlider::focusInEvent(event);
    ring.focusChanged(*event);
}

void StepSlider::focusOutEvent(QFocusEvent* event)
{
    QAbstractSlider::focusOutEvent(event);
    ring.focusChanged(*event);
}

void StepSlider::paintEvent(QPaintEvent*)
{
    const Surroundings surroundings = surroundingsOf(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const double middle = height() / 2.0;
    const double center = knobCenter(value());
    const QRectF track(0, middle - trackHeight / 2, width(), trackHeight);
    painter.setBrush(color({InkRole::primary, 0.14}, surroundings));
    painter.drawRoundedRect(track, trackHeight / 2, trackHeight / 2);
    painter.setBrush(color({InkRole::accent}, surroundings));
    painter.drawRoundedRect(
        QRectF(track.topLeft(), QSizeF(center, trackHeight)), trackHeight / 2, trackHeight / 2);
    const QRectF knob(
        center - knobDiameter / 2, middle - knobDiameter / 2, knobDiameter, knobDiameter);
    painter.setPen(QPen(QColor(0, 0, 0, 45), 1));
    painter.setBrush(Qt::white);
    painter.drawEllipse(knob.adjusted(0.5, 0.5, -0.5, -0.5));
    ring.paint(painter, knob.adjusted(-1, -1, 1, 1), knobDiameter / 2 + 1);
}

void StepSlider::moveTo(double x)
{
    const double fraction = (x - knobDiameter / 2) / (width() - knobDiameter);
    setValue(nearestStep(minimum() + fraction * (maximum() - minimum())));
}

} // namespace sablequill
