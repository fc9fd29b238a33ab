// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemDelegate>

namespace sablequill {

/// Draws a note's row: its title above its preview, a checkmark when the note is the selected one,
/// and a divider below.
class NoteRowDelegate : public QAbstractItemDelegate {
public:
    using QAbstractItemDelegate::QAbstractItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace sablequill
