// SPDX-License-Identifier: MIT
#include "PushButton.h"

#include "Bands.h"
#include "Ink.h"
#include "TextStyle.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr double cornerRadius = 6;

struct Bezel {
    TextStyle text;
    int height = 0;
    int padding = 0;
};

Bezel bezel(PushButton::ControlSize size)
{
    if (size == PushButton::ControlSize::small)
        return {TextStyles::subheadline, 20, 9};
    return {TextStyles::body, 26, 13};
}

} // namespace

PushButton::PushButton(
    const QString& title, Style style, ControlSize size, std::function<void()> action)
    : style(style)
    , controlSize(size)
{
    setText(title);
    setAccessibleName(title);
    setFont(sablequill::font(bezel(size).text));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::TabFocus);
    connect(this, &QAbstractButton::clicked, this, std::move(action));
}

QSize PushButton::sizeHint() const
{
    const auto [text, height, padding] = bezel(controlSize);
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(this->text()) + 2 * padding,
        std::max(height, metrics.height() + 4)};
}

void PushButton::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void PushButton::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

void PushButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void PushButton::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    ring.focusChanged(*event);
}

void PushButton::focusOutEvent(QFocusEvent* event)
{
    QAbstractButton::focusOutEvent(event);
    ring.focusChanged(*event);
}

void PushButton::paintEvent(QPaintEvent*)
{
    const Surroundings surroundings = surroundingsOf(*this);
    const bool isProminent = style == Style::borderedProminent;
    const double fade = isEnabled() ? 1 : 0.4;
    const double answer = isDown() ? 0.16 : underMouse() && isEnabled() ? 0.07 : 0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (const Ink fill :
        {isProminent ? Ink{InkRole::accent, fade} : Ink{InkRole::primary, 0.10 * fade},
            Ink{isProminent ? InkRole::black : InkRole::primary, answer}}) {
        painter.setBrush(color(fill, surroundings));
        drawRoundedRect(painter, rect(), cornerRadius);
    }
    painter.setPen(color({isProminent ? InkRole::white : InkRole::primary, fade}, surroundings));
    painter.drawText(rect(), Qt::AlignCenter, text());
    // On the accent color a ring of the accent color would not show.
    const double inset = isProminent ? 2 : 0;
    ring.paint(painter, QRectF(rect()).adjusted(inset, inset, -inset, -inset), cornerRadius - inset,
        isProminent ? Ink{InkRole::white} : Ink{InkRole::accent});
}

} // namespace sablequill
