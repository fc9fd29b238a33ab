// SPDX-License-Identifier: MIT
#pragma once

#include "AppSettings.h"
#include "EditBuffer.h"
#include "PanelContent.h"

#include <QUuid>
#include <QWidget>

#include <functional>
#include <optional>

class QStackedWidget;

namespace sablequill {

class AppState;
class CrossFade;
class NoteEditor;
class NoteTextView;
class NotesManager;
class OverlayChrome;
class OverlayFooter;
class OverlayHeader;
class OverlayManager;
class Refresh;

/// The overlay's content: the selected note to read or to edit, and the controls around it.
class OverlayView : public QWidget, public PanelContent {
    Q_OBJECT

public:
    /// The application state outlives every turn of the main loop that the view lives in.
    explicit OverlayView(AppState& appState);
    ~OverlayView() override;

    /// The text that is shown and edited; the only copy of it in the view.
    EditBuffer editContent;

    /// The settings last applied.
    AppSettings settings() const;
    /// Of the selected note in the list, counted from 1; 1 when there is none.
    int currentNoteIndex() const;
    /// Takes over the text of the selected note, or nothing when there is none. While the editor is
    /// shown a text that differs is an edit like any other, and written back.
    void syncEditContent();

    QMargins shadowReach() const override;
    QRegion shape(const QRect& card) const override;
    void setComposited(bool isComposited) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QStackedWidget* makeContentArea();
    void connectControls();

    void appear();
    void refresh();
    void followSelection();
    bool isEditorShown() const;
    void showMode();
    void showText();

    void toggleEditing();
    void startNewNote();
    void animated(const std::function<void()>& action);
    void writeThrough();

    AppState& appState;
    NotesManager& notesManager;
    OverlayManager& overlayManager;

    NoteTextView* textView = nullptr;
    NoteEditor* editor = nullptr;
    OverlayHeader* headerBar = nullptr;
    QStackedWidget* contentArea = nullptr;
    OverlayFooter* footerBar = nullptr;
    OverlayChrome* chrome = nullptr;
    CrossFade* fade = nullptr;
    Refresh* refreshing = nullptr;

    bool hasAppeared = false;
    /// The selection when the view last followed it.
    std::optional<QUuid> followedNoteID;
    /// Whose text is in the buffer: edits go to that note.
    std::optional<QUuid> bufferNoteID;
    /// Whose text the reading view shows, and at which size.
    std::optional<QUuid> readNoteID;
    double readFontSize = 0;
    bool isTextViewStale = true;
    bool isEditorStale = true;
    bool editorTakesKeyboard = false;
};

} // namespace sablequill
