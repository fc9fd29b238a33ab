// SPDX-License-Identifier: MIT
#pragma once

#include "FocusRing.h"

#include <QAbstractButton>
#include <QVariantAnimation>

namespace sablequill {

/// A switch that is on or off.
class Switch : public QAbstractButton {
    Q_OBJECT

public:
    explicit Switch(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void checkStateSet() override;
    void nextCheckState() override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void moveKnob(bool isAnimated);

    FocusRing ring{this};
    QVariantAnimation slide;
    /// Of the knob, from 0 (off) to 1 (on).
    double position = 0;
};

} // namespace sablequill
