// SPDX-License-Identifier: MIT
#pragma once

#include "FocusRing.h"

#include <QAbstractButton>

#include <functional>

namespace sablequill {

/// A button with a bezel and a title.
class PushButton : public QAbstractButton {
    Q_OBJECT

public:
    enum class Style { bordered, borderedProminent };
    enum class ControlSize { regular, small };

    PushButton(const QString& title, Style style, ControlSize size, std::function<void()> action);

    QSize sizeHint() const override;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    Style style;
    ControlSize controlSize;
    FocusRing ring{this};
};

} // namespace sablequill
