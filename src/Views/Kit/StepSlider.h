// SPDX-License-Identifier: MIT
#pragma once

#include "FocusRing.h"

#include <QAbstractSlider>

namespace sablequill {

/// A horizontal slider over steps of equal size: by dragging, by a press on its track, by wheel and
/// by keys. Its value is in the units of what it sets, as screen readers tell it.
class StepSlider : public QAbstractSlider {
    Q_OBJECT

public:
    /// `most` is a whole number of steps above `least`.
    StepSlider(int least, int most, int step, QWidget* parent = nullptr);

    /// The step that a value in the slider's units, whatever its size, is nearest to.
    int nearestStep(double value) const;
    /// The middle of the knob at a value, in the slider's coordinates.
    double knobCenter(int value) const;

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void moveTo(double x);

    FocusRing ring{this};
    /// Of the wheel, since the last whole step, in eighths of a degree.
    int wheelTravel = 0;
};

} // namespace sablequill
