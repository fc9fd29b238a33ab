// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace sablequill {

class NotesListView;
class NotesManager;

/// All notes: to select, to delete, and to begin a new one.
class NotesSettingsTab : public QWidget {
    Q_OBJECT

public:
    /// The notes manager outlives the view.
    explicit NotesSettingsTab(NotesManager& noteStore);

private:
    QWidget* header();

    NotesManager& noteStore;
};

} // namespace sablequill
