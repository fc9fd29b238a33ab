// SPDX-License-Identifier: MIT
#include "TextLabel.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <utility>

namespace sablequill {
namespace {

/// No screen shows more of one line; measuring a longer one takes time for nothing.
constexpr qsizetype longestLine = 1000;

bool isLineBreak(QChar character)
{
    return (character >= u'\n' && character <= u'\r') || character == u'\u0085'
        || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

/// The text up to its first line break, with an ellipsis for what is left out.
QString firstLine(const QString& text)
{
    const auto end = std::find_if(text.begin(), text.end(), isLineBreak);
    qsizetype length = std::min<qsizetype>(end - text.begin(), longestLine);
    if (length < text.size() && length > 0 && text.at(length - 1).isHighSurrogate())
        --length;
    QString line = text.left(length);
    for (QChar& character : line)
        character = character.category() == QChar::Other_Control ? QChar(u' ') : character;
    return length < text.size() ? line + QChar(0x2026) : line;
}

} // namespace

TextLabel::TextLabel(const QString& text, TextStyle style, Ink ink, Lines lines, QWidget* parent)
    : QLabel(parent)
    , textStyle(style)
    , textInk(ink)
    , lines(lines)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFont(sablequill::font(style));
    setWordWrap(lines == Lines::many);
    QSizePolicy policy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    if (lines == Lines::many) {
        policy = QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        policy.setHeightForWidth(true);
    }
    setSizePolicy(policy);
    setText(text);
}

void TextLabel::setInk(Ink ink)
{
    if (std::exchange(textInk, ink) != ink)
        update();
}

void TextLabel::setMonospacedDigits()
{
    hasMonospacedDigits = true;
    updateGeometry();
}

void TextLabel::reserve(const QString& widest)
{
    if (std::exchange(reserved, widest) != widest)
        updateGeometry();
}

void TextLabel::wrapAt(int width)
{
    const int height = heightForWidth(width);
    setFixedSize(width, height);
    if (!(alignment() & Qt::AlignHCenter))
        return;
    // The least width that needs no more lines.
    int tooNarrow = 0;
    wrapWidth = width;
    while (wrapWidth - tooNarrow > 1) {
        const int middle = (tooNarrow + wrapWidth) / 2;
        (fits(middle, height) ? wrapWidth : tooNarrow) = middle;
    }
    update();
}

bool TextLabel::fits(int width, int height) const
{
    const QRect room(0, 0, width, QWIDGETSIZE_MAX);
    const QRect taken = QFontMetrics(font()).boundingRect(room, Qt::TextWordWrap, text());
    return taken.width() <= width && taken.height() <= height;
}

void TextLabel::setMonospacedDesign()
{
    hasMonospacedDesign = true;
    setFont(monospacedFont(textStyle));
}

QString TextLabel::shownLine(int width) const
{
    QString line = firstLine(text());
    if (advance(line) <= width)
        return line;
    return QFontMetricsF(font()).elidedText(line, Qt::ElideRight, width);
}

QSize TextLabel::sizeHint() const
{
    if (lines == Lines::many)
        return {minimumSizeHint().width(), wrappedHeight(QWIDGETSIZE_MAX)};
    const double width = std::max(advance(firstLine(text())), advance(reserved));
    return {static_cast<int>(std::ceil(width)), QFontMetrics(font()).height()};
}

QSize TextLabel::minimumSizeHint() const
{
    const QFontMetrics metrics(font());
    if (lines == Lines::many)
        return {metrics.averageCharWidth() * 10, metrics.height()};
    if (!reserved.isEmpty())
        return sizeHint();
    return {
        std::min(sizeHint().width(), metrics.horizontalAdvance(QChar(0x2026))), metrics.height()};
}

int TextLabel::heightForWidth(int width) const
{
    return lines == Lines::many ? wrappedHeight(width) : -1;
}

void TextLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(foreground(*this, textInk));
    if (lines == Lines::many)
        painter.drawText(textArea(), static_cast<int>(alignment()) | Qt::TextWordWrap, text());
    else
        paintLine(painter);
}

double TextLabel::advance(const QString& line) const
{
    if (!hasMonospacedDigits && !hasMonospacedDesign)
        return QFontMetricsF(font()).horizontalAdvance(line);
    double width = 0;
    for (const QChar character : line)
        width += advance(character);
    return width;
}

double TextLabel::advance(QChar character) const
{
    return hasMonospacedDigits && character.isDigit()
        ? digitWidth()
        : QFontMetricsF(fontOf(character)).horizontalAdvance(character);
}

QFont TextLabel::fontOf(QChar character) const
{
    // In a fixed-pitch family the signs of the keys are too narrow to be told apart.
    const bool isSign = character.unicode() > 0x7f && !character.isLetterOrNumber();
    return hasMonospacedDesign && isSign ? sablequill::font(textStyle) : font();
}

double TextLabel::digitWidth() const
{
    const QFontMetricsF metrics(font());
    double widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QChar(digit)));
    return widest;
}

QRect TextLabel::textArea() const
{
    return wrapWidth == 0 ? rect() : QRect((width() - wrapWidth) / 2, 0, wrapWidth, height());
}

int TextLabel::wrappedHeight(int width) const
{
    const QRect room(0, 0, width, QWIDGETSIZE_MAX);
    return QFontMetrics(font()).boundingRect(room, Qt::TextWordWrap, text()).height();
}

void TextLabel::paintLine(QPainter& painter) const
{
    const QFontMetricsF metrics(font());
    const QString line = shownLine(width());
    const double slack = width() - advance(line);
    const bool isCentered = (alignment() & Qt::AlignHCenter) != 0;
    const bool isAtEnd = (alignment() & Qt::AlignRight) != 0;
    double x = isCentered ? slack / 2 : isAtEnd ? slack : 0;
    const double baseline = std::round((height() - metrics.height()) / 2 + metrics.ascent());
    if (!hasMonospacedDigits && !hasMonospacedDesign) {
        painter.drawText(QPointF(std::max(x, 0.0), baseline), line);
        return;
    }
    for (const QChar character : line) {
        painter.setFont(fontOf(character));
        const double own = QFontMetricsF(painter.font()).horizontalAdvance(character);
        const double cell = advance(character);
        painter.drawText(QPointF(x + (cell - own) / 2, baseline), character);
        x += cell;
    }
}

} // namespace sablequill
