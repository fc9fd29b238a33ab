// SPDX-License-Identifier: MIT
#pragma once

#include "AppFixture.h"
#include "NoteEditor.h"
#include "NoteTextView.h"
#include "OverlayFooter.h"
#include "OverlayHeader.h"
#include "OverlayView.h"
#include "PlainButton.h"
#include "SymbolView.h"
#include "TextLabel.h"
#include "Widgets.h"

#include <QTest>

namespace sablequill {
using namespace Qt::StringLiterals;

/// A window as the panel's: it takes the presses that nothing in it wants.
class PanelStandIn : public QWidget {
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

/// An overlay view on an application state of its own, in a window of the panel's default size.
class OverlayViewFixture : public AppFixture {
protected:
    OverlayViewFixture()
    {
        view->setParent(&window);
        resizeCard(420, 280);
    }

    ~OverlayViewFixture() override { delete view; }

    void SetUp() override { open(); }

    void open()
    {
        present(window);
        window.activateWindow();
        turn();
    }

    void resizeCard(int width, int height)
    {
        window.resize(QSize(width, height).grownBy(view->shadowReach()));
        view->setGeometry(window.rect());
        turn();
    }

    /// Replaces the list; the first note is selected.
    void setNotes(const QStringList& contents)
    {
        std::vector<MirkpadItem> items;
        for (const QString& content : contents) {
            MirkpadItem note;
            note.content = content;
            note.title = u"Title of "_s + content.left(10);
            items.push_back(note);
        }
        notes.notes = items;
        notes.selectedNoteID =
            items.empty() ? std::nullopt : std::optional<QUuid>(items.front().id);
        turn();
    }

    void edit(bool isEditing = true)
    {
        overlay.isEditing = isEditing;
        turn();
    }

    void click(const QString& name)
    {
        QTest::mouseClick(&child(name), Qt::LeftButton);
        turn();
    }

    void change(const std::function<void(AppSettings&)>& setting)
    {
        AppSettings next = appState.currentSettings;
        setting(next);
        appState.currentSettings = next;
        turn();
    }

    template <typename Kind = QWidget> Kind& child(const QString& name)
    {
        return found<Kind>(*view, name);
    }

    NoteEditor& editor() { return child<NoteEditor>(u"noteEditor"_s); }
    NoteTextView& textView() { return child<NoteTextView>(u"noteTextView"_s); }
    QString title() { return child<TextLabel>(u"noteTitle"_s).text(); }
    QString counter() { return child<TextLabel>(u"noteCounter"_s).text(); }
    bool isEditorShown() { return editor().isVisible(); }
    QString read() { return textView().toPlainText(); }

    /// In the card's coordinates.
    QRect frameInCard(const QString& name)
    {
        const QMargins reach = view->shadowReach();
        return frameIn(*view, child(name)).translated(-reach.left(), -reach.top());
    }

    NotesManager& notes = *appState.notesManager;
    OverlayManager& overlay = *appState.overlayManager;
    PanelStandIn window;
    OverlayView* view = new OverlayView(appState);
};

} // namespace sablequill
