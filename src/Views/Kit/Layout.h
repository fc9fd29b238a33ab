// SPDX-License-Identifier: MIT
#pragma once

#include <QMargins>
#include <QString>
#include <QWidget>

#include <initializer_list>

namespace sablequill {

/// Between the children of a stack where no spacing is given, in points.
inline constexpr int defaultSpacing = 8;
/// On every side where no padding is given, in points.
inline constexpr int defaultPadding = 16;

enum class VerticalAlignment { top, center };
enum class HorizontalAlignment { leading, center };

/// Children side by side, each as wide as it needs; spacers share what is left. The row owns them,
/// and lets presses on its own ground through.
QWidget* row(int spacing, std::initializer_list<QWidget*> children,
    VerticalAlignment alignment = VerticalAlignment::center);
/// Children below each other, each as high as it needs; what can grow takes the full width.
QWidget* column(int spacing, std::initializer_list<QWidget*> children,
    HorizontalAlignment alignment = HorizontalAlignment::center);

/// Takes what room is left in its row or column, 8 points at least.
QWidget* spacer();
/// A line of one point; the opacity multiplies the divider color's own.
QWidget* divider(double opacity = 1);

QMargins insets(int all);
QMargins insets(int horizontal, int vertical);
/// Room around a widget. A row or column is padded in place and returned itself.
QWidget* padded(QMargins padding, QWidget* widget);

/// Gives a control its name for tests, what a screen reader calls it, and a tooltip where the
/// control shows no words.
template <typename Control>
Control* named(const QString& objectName, const QString& accessibleName, Control* control,
    const QString& toolTip = {})
{
    control->setObjectName(objectName);
    control->setAccessibleName(accessibleName);
    control->setToolTip(toolTip);
    return control;
}

} // namespace sablequill
