// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace sablequill {

class AppState;
class NotesManager;
class NoteRow;
class SymbolView;
class TextLabel;

/// An action that the popover offers, and the small menu too where a desktop shows nothing else.
struct MenuAction {
    QString title;
    /// Of its symbol; empty for none.
    QString icon;
    std::function<void()> run;
};

/// The entries in their order; the last one ends the program. The application state outlives them.
/// `showSettings` and `quit` are what the last two do.
std::vector<MenuAction> menuActions(
    AppState& appState, std::function<void()> showSettings, std::function<void()> quit);

/// The popover's content: the first notes, the main actions, and the way out.
class MenuBarView : public QWidget {
    Q_OBJECT

public:
    /// The application state outlives the view; the actions are the entries of menuActions().
    MenuBarView(AppState& appState, std::vector<MenuAction> actions);

    /// To be called each time the view is about to be shown.
    void appear();

Q_SIGNALS:
    /// The user asked to close the popover with the keyboard.
    void escaped();
    /// The view needs another height than before.
    void heightChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* header();
    QWidget* notesSection();
    QWidget* actionsSection();
    QWidget* footer();

    void selectNote(std::size_t index);
    void refresh();

    AppState& appState;
    NotesManager& notesManager;
    const std::vector<MenuAction> actions;
    SymbolView* mirkIndicator = nullptr;
    std::vector<NoteRow*> noteRows;
    QWidget* overflow = nullptr;
    TextLabel* overflowText = nullptr;
};

} // namespace sablequill
