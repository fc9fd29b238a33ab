// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

class QAction;

namespace sablequill {

/// Draws menus and tooltips like the rest of the program: rounded, and in the inks of what they
/// belong to. The application's style; everything else draws itself.
class PopupStyle : public QProxyStyle {
    Q_OBJECT

public:
    PopupStyle();

    /// Marks what a menu's item does as a loss, which its color then tells.
    static void setDestructive(QAction& action);

    using QProxyStyle::polish;
    void polish(QApplication* application) override;
    void polish(QWidget* widget) override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* returned) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
        const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
};

} // namespace sablequill
