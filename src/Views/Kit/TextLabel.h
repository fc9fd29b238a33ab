// SPDX-License-Identifier: MIT
#pragma once

#include "Ink.h"
#include "TextStyle.h"

#include <QLabel>

namespace sablequill {

/// Plain text in one style. Lets presses through to what lies behind it.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    enum class Lines {
        one, ///< Cut off with an ellipsis at the end where there is no room, or at a line break.
        many, ///< Wrapped at words, as wide as it may get.
    };

    explicit TextLabel(const QString& text, TextStyle style = {}, Ink ink = {},
        Lines lines = Lines::one, QWidget* parent = nullptr);

    TextStyle style() const { return textStyle; }
    Ink ink() const { return textInk; }
    void setInk(Ink ink);

    /// Digits of equal width, whatever the font.
    void setMonospacedDigits();
    /// Makes the label as wide as this text at least, so that what stands beside it does not move.
    void reserve(const QString& widest);
    /// Wraps the text within this width, in points, and makes the label as high as that needs. The
    /// lines of a centered text get about the same length.
    void wrapAt(int width);
    /// Uses the fixed-pitch family, but for signs other than letters and digits.
    void setMonospacedDesign();

    /// What is drawn of a one-line text in a width, in points.
    QString shownLine(int width) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    double advance(const QString& line) const;
    double advance(QChar character) const;
    double digitWidth() const;
    QFont fontOf(QChar character) const;
    int wrappedHeight(int width) const;
    bool fits(int width, int height) const;
    QRect textArea() const;
    void paintLine(QPainter& painter) const;

    TextStyle textStyle;
    Ink textInk;
    Lines lines;
    QString reserved;
    int wrapWidth = 0; ///< In points; 0 for the label's own.
    bool hasMonospacedDigits = false;
    bool hasMonospacedDesign = false;
};

} // namespace sablequill
