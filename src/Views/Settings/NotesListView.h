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

private:
    void select(const QModelIndex& index);
    void showMenuOfCurrentRow();
    void showMenu(const QModelIndex& index, QPoint at);

    NotesManager& noteStore;
    NotesListModel* rows;
};

} // namespace sablequill
