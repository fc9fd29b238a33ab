// SPDX-License-Identifier: MIT
#pragma once

#include "FocusRing.h"
#include "Ink.h"

#include <QAbstractButton>

#include <functional>

namespace sablequill {

/// What a plain button draws behind its label.
struct Backdrop {
    enum class Shape {
        none, ///< Nothing, whatever the pointer does.
        circle,
        roundedRectangle,
    };

    Shape shape = Shape::none;
    Ink fill = {InkRole::clear};
    double radius = 6; ///< Of the corners; also of the focus ring's where there is no shape.
    int inset = 0; ///< Between the button's left and right edges and the shape's, in points.
};

/// A button without a bezel: its label, and a backdrop that answers the pointer. The whole
/// rectangle reacts to clicks.
class PlainButton : public QAbstractButton {
    Q_OBJECT

public:
    PlainButton(QWidget* label, Backdrop backdrop, std::function<void()> action);

    /// The button that holds a widget as its label or in it; null when there is none.
    static const PlainButton* around(const QWidget& widget);

    bool isHovered() const { return hovered; }
    const Backdrop& shownBackdrop() const { return backdrop; }

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setHovered(bool isHovered);

    Backdrop backdrop;
    FocusRing ring{this};
    bool hovered = false;
};

} // namespace sablequill
