// SPDX-License-Identifier: MIT
#pragma once

#include "Ink.h"

#include <QRectF>

class QFocusEvent;
class QPainter;
class QWidget;

namespace sablequill {

/// Remembers whether a widget came by the focus through the keyboard: only then is a ring drawn.
class FocusRing {
public:
    explicit FocusRing(QWidget* widget);

    /// To be told of each of the widget's focus events.
    void focusChanged(const QFocusEvent& event);
    bool isShown() const { return shown; }
    /// Draws the ring inside `bounds`, if it is shown.
    void paint(
        QPainter& painter, const QRectF& bounds, double radius, Ink ink = {InkRole::accent}) const;

private:
    QWidget* widget;
    bool shown = false;
};

} // namespace sablequill
