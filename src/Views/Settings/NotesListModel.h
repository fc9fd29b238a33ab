// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractListModel>
#include <QUuid>

#include <vector>

namespace sablequill {

class NotesManager;
struct MirkpadItem;

/// The notes as rows of a list. Follows the list by inserting and removing rows, so that a view
/// keeps its place; the rows read the notes themselves.
class NotesListModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role { previewRole = Qt::UserRole, isSelectedRole };

    /// The notes manager outlives the model.
    explicit NotesListModel(NotesManager& noteStore, QObject* parent = nullptr);

    /// The note in a row, or null when the list has changed under the row.
    const MirkpadItem* note(const QModelIndex& index) const;

    /// The row of the selected note; invalid when it has none.
    QModelIndex selected() const;

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    bool isSelected(const MirkpadItem& note) const;
    void follow();

    NotesManager& noteStore;
    std::vector<QUuid> rows;
};

} // namespace sablequill
