// SPDX-License-Identifier: MIT
#pragma once

#include "FocusRing.h"

#include <QAbstractSlider>

namespace sablequill {

/// A horizontal slider over whole steps: by dragging, by a press on its track, by wheel and by
/// keys.
class StepSlider : public QAbstractSlider {
    Q_OBJECT

public:
    /// Steps from 0 to `lastStep`.
    explicit StepSlider(int lastStep, QWidget* parent = nullptr);

    /// The middle of the knob at a step, in the slider's coordinates.
    double knobCenter(int step) const;

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
