// SPDX-License-Identifier: MIT
#include "TabButton.h"

#include "Bands.h"
#include "Ink.h"
#include "Symbol.h"
#include "TextStyle.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr double symbolSize = 18;
constexpr double cornerRadius = 8;
constexpr int leastWidth = 76;

} // namespace

TabButton::TabButton(const QString& label, const QString& symbol, std::function<void()> action)
    : symbol(symbol)
{
    setText(label);
    setObjectName(label + QStringLiteral("Tab"));
    setAccessibleName(label);
    setCheckable(true);
    setAutoExclusive(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFont(sablequill::font(TextStyles::subheadline));
    // Not when clicked: a screen reader checks the button instead.
    connect(this, &QAbstractButton::toggled, this, [action = std::move(action)](bool isOn) {
        if (isOn)
            action();
    });
}

QSize TabButton::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {std::max(leastWidth, metrics.horizontalAdvance(text()) + 20),
        symbolExtent(symbolSize) + metrics.height() + 12};
}

void TabButton::focusInEvent(QFocusEvent* event)
{
    QAbstractButton::focusInEvent(event);
    ring.focusChanged(*event);
}

void TabButton::focusOutEvent(QFocusEvent* event)
{
    QAbstractButton::focusOutEvent(event);
    ring.focusChanged(*event);
}

void TabButton::paintEvent(QPaintEvent*)
{
    const Surroundings surroundings = surroundingsOf(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (isChecked()) {
        painter.setBrush(color({InkRole::primary, 0.08}, surroundings));
        drawRoundedRect(painter, rect(), cornerRadius);
    }
    const QColor ink = color({isChecked() ? InkRole::accent : InkRole::secondary}, surroundings);
    const int extent = symbolExtent(symbolSize);
    drawSymbol(
        painter, QPointF((width() - extent) / 2, 5), {symbol, symbolSize, QFont::Medium}, ink);
    painter.setPen(ink);
    painter.drawText(QRect(0, extent + 4, width(), height() - extent - 6), Qt::AlignCenter, text());
    ring.paint(painter, rect(), cornerRadius);
}

} // namespace sablequill
