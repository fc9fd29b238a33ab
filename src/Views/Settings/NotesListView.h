// SPDX-License-Identifier: MIT
#pragma once

#include <QListView>

namespace sablequill {

class NotesListModel;
class NotesManager;

/// The list of notes. Draws only the rows in sight, so that its length does not matter. A click
/// selects a note, and so do Return and Space; a context menu (also by its key and by Shift+F10)
/// deletes it.
class NotesListView : public QListView {
    Q_OBJECT

public:
    /// The notes manager outlives the view.
    explicit NotesListView(NotesManager& noteStore, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Neither the mouse nor the keys select in the list itself, see followSelection().
    QItemSelectionModel::SelectionFlags selectionCommand(
        const QModelIndex& index, const QEvent* event) const override;

protected Q_SLOTS:
    void rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end) override;

private:
    void select(const QModelIndex& index);
    /// The list's own selection is for assistive programs: the row of the selected note for them to
    /// read, and any row for them to select.
    void followSelection();
    void showMenuOfCurrentRow();
    void showMenu(const QModelIndex& index, QPoint at);

    NotesManager& noteStore;
    NotesListModel* rows;
};

} // namespace sablequill
