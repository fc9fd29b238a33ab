// SPDX-License-Identifier: MIT
#include "NoteRowDelegate.h"

#include "DevicePixels.h"
#include "Ink.h"
#include "NotesListModel.h"
#include "Symbol.h"
#include "Text.h"
#include "TextStyle.h"

#include <QPainter>
#include <QWidget>

namespace sablequill {
namespace {

constexpr int horizontalPadding = 12;
constexpr int verticalPadding = 8;
constexpr int lineSpacing = 2;
constexpr TextStyle titleStyle{13, QFont::Medium};
constexpr double symbolSize = 13;

/// The text as it is stored, but on one line: a title out of a file may hold anything.
QString onOneLine(QString text)
{
    for (QChar& character : text)
        if (Text::isNewline(character) || character.category() == QChar::Other_Control)
            character = u' ';
    return text;
}

/// As much of a text as there is room for.
void drawLine(QPainter& painter, const QRect& area, const TextStyle& style, const QColor& ink,
    const QString& text)
{
    painter.setFont(font(style));
    painter.setPen(ink);
    const QFontMetrics metrics(painter.font());
    painter.drawText(area, Qt::AlignLeft | Qt::AlignVCenter,
        metrics.elidedText(onOneLine(text), Qt::ElideRight, area.width()));
}

} // namespace

void NoteRowDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const Surroundings surroundings = surroundingsOf(*option.widget);
    const auto ink = [&](InkRole role, double opacity = 1) {
        return color({role, opacity}, surroundings);
    };
    const QRect area = option.rect.adjusted(0, 0, 0, -1);
    if (option.state & QStyle::State_MouseOver)
        painter->fillRect(area, ink(InkRole::primary, 0.04));
    if ((option.state & QStyle::State_HasFocus)
        && (option.state & QStyle::State_KeyboardFocusChange))
        painter->fillRect(area, ink(InkRole::accent, 0.16));

    const int extent = symbolExtent(symbolSize);
    QRect content =
        area.adjusted(horizontalPadding, verticalPadding, -horizontalPadding, -verticalPadding);
    if (index.data(NotesListModel::isSelectedRole).toBool()) {
        const QPoint corner(content.right() + 1 - extent, content.center().y() - extent / 2);
        drawSymbol(*painter, corner, {QStringLiteral("checkmark.circle.fill"), symbolSize},
            ink(InkRole::accent));
        content.adjust(0, 0, -extent - horizontalPadding, 0);
    }
    const int titleHeight = QFontMetrics(font(titleStyle)).height();
    drawLine(*painter, {content.topLeft(), QSize(content.width(), titleHeight)}, titleStyle,
        ink(InkRole::primary), index.data(Qt::DisplayRole).toString());
    content.setTop(content.top() + titleHeight + lineSpacing);
    drawLine(*painter, content, TextStyles::caption, ink(InkRole::secondary),
        index.data(NotesListModel::previewRole).toString());
    fillHairline(*painter, QRectF(option.rect.left(), option.rect.bottom(), option.rect.width(), 1),
        ink(InkRole::divider));
}

QSize NoteRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    const int lines = QFontMetrics(font(titleStyle)).height() + lineSpacing
        + QFontMetrics(font(TextStyles::caption)).height();
    // As wide as the list is, whatever its width was when a row was first asked for.
    return {0, lines + 2 * verticalPadding + 1};
}

} // namespace sablequill
