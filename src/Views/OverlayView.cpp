// SPDX-License-Identifier: MIT
#include "OverlayView.h"

#include "AppState.h"
#include "CardPatch.h"
#include "Constants.h"
#include "CrossFade.h"
#include "Layout.h"
#include "MarkdownParser.h"
#include "NoteEditor.h"
#include "NoteTextView.h"
#include "NotesManager.h"
#include "OverlayChrome.h"
#include "OverlayFooter.h"
#include "OverlayHeader.h"
#include "OverlayManager.h"
#include "Refresh.h"
#include "RoundedRegion.h"
#include "TextStyle.h"

#include <QApplication>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr double dividerOpacity = 0.3;

} // namespace

OverlayView::OverlayView(AppState& appState)
    : appState(appState)
    , notesManager(*appState.notesManager)
    , overlayManager(*appState.overlayManager)
{
    chrome = new OverlayChrome(column(0,
        {
            headerBar = new OverlayHeader(appState.mirkProtection),
            divider(dividerOpacity),
            contentArea = makeContentArea(),
            divider(dividerOpacity),
            footerBar = new OverlayFooter,
        }));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->addWidget(chrome);
    fade = new CrossFade(contentArea, Constants::animationDuration);
    setObjectName(QStringLiteral("overlayView"));

    connectControls();
    refreshing = new Refresh(this, [this] { refresh(); });
    refreshing->observe(&appState);
    refreshing->observe(&notesManager);
    refreshing->observe(&overlayManager);
    // A blinking cursor would wake the program twice a second for as long as a note is edited.
    QApplication::setCursorFlashTime(0);
}

OverlayView::~OverlayView()
{
    // The editor refers to the buffer.
    delete chrome;
}

QStackedWidget* OverlayView::makeContentArea()
{
    auto* area = new QStackedWidget;
    area->setObjectName(QStringLiteral("contentArea"));
    area->addWidget(textView = named(QStringLiteral("noteTextView"), tr("Note"), new NoteTextView));
    area->addWidget(
        editor = named(QStringLiteral("noteEditor"), tr("Note text"), new NoteEditor(editContent)));
    return area;
}

void OverlayView::connectControls()
{
    connect(headerBar, &OverlayHeader::editingToggled, this,
        [this] { animated([this] { toggleEditing(); }); });
    connect(
        headerBar, &OverlayHeader::hideRequested, this, [this] { overlayManager.hideOverlay(); });
    connect(footerBar, &OverlayFooter::previousRequested, this, [this] {
        animated([this] {
            notesManager.selectPrevious();
            syncEditContent();
        });
    });
    connect(footerBar, &OverlayFooter::nextRequested, this, [this] {
        animated([this] {
            notesManager.selectNext();
            syncEditContent();
        });
    });
    connect(footerBar, &OverlayFooter::newRequested, this, &OverlayView::startNewNote);
    connect(editor, &NoteEditor::edited, this, [this] {
        if (!std::exchange(isTextViewStale, true))
            textView->dropNote();
        // The picture first: the screen is made while the note is being written.
        QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
        writeThrough();
    });
    // Whoever asks for the editor, or shows the overlay while it is in it, is going to type.
    connect(&overlayManager, &ObservableObject::objectWillChange, this,
        [this] { editorTakesKeyboard = true; });
}

AppSettings OverlayView::settings() const
{
    return appState.currentSettings;
}

int OverlayView::currentNoteIndex() const
{
    const auto& notes = notesManager.notes.get();
    const auto& selected = notesManager.selectedNoteID.get();
    const auto found = std::find_if(
        notes.begin(), notes.end(), [&](const MirkpadItem& note) { return note.id == selected; });
    return found == notes.end() ? 1 : static_cast<int>(found - notes.begin()) + 1;
}

void OverlayView::syncEditContent()
{
    const MirkpadItem* note = notesManager.selectedNote();
    const QString content = note ? note->content.text() : QString();
    const auto& selected = notesManager.selectedNoteID.get();
    const bool isOtherText = content != editContent.text();
    if (std::exchange(bufferNoteID, selected) == selected && !isOtherText)
        return;
    editContent.setText(content);
    isTextViewStale = true;
    isEditorStale = true;
    refreshing->schedule();
    if (!isEditorShown())
        return;
    // At once: a key that is pressed before the next turn must find the text that it changes.
    showMode();
    if (isEditorShown() && isOtherText)
        writeThrough();
}

QMargins OverlayView::shadowReach() const
{
    return chrome->shadowReach();
}

QRegion OverlayView::shape(const QRect& card) const
{
    return roundedRegion(card, CardPatch::cornerRadius);
}

void OverlayView::setComposited(bool isComposited)
{
    chrome->setComposited(isComposited);
}

void OverlayView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (!std::exchange(hasAppeared, true))
        appear();
}

void OverlayView::appear()
{
    overlayManager.ensurePanelCreated(appState);
    syncEditContent();
    followedNoteID = notesManager.selectedNoteID;
    refresh();
}

void OverlayView::refresh()
{
    if (!hasAppeared)
        return;
    showMode();
    followSelection();
    const MirkpadItem* note = notesManager.selectedNote();
    const AppSettings now = settings();
    headerBar->showContent(
        {note ? note->title : Constants::appName, now.mirkModeEnabled, overlayManager.isEditing});
    footerBar->showCounter(currentNoteIndex(), notesManager.notes->size());
    showText();
    if (std::exchange(editorTakesKeyboard, false) && overlayManager.isEditing)
        editor->setFocus();
}

void OverlayView::followSelection()
{
    const auto& selected = notesManager.selectedNoteID.get();
    if (std::exchange(followedNoteID, selected) != selected)
        syncEditContent();
}

bool OverlayView::isEditorShown() const
{
    return contentArea->currentWidget() == editor;
}

void OverlayView::showMode()
{
    const bool isEditing = overlayManager.isEditing;
    if (isEditing != isEditorShown()) {
        const bool hasKeyboard = contentArea->isAncestorOf(focusWidget());
        contentArea->setCurrentIndex(isEditing ? 1 : 0);
        if (hasKeyboard)
            contentArea->currentWidget()->setFocus();
    }
    // Only the editor that is shown can scroll to where it has to be.
    if (isEditing && std::exchange(isEditorStale, false))
        editor->load();
}

void OverlayView::showText()
{
    const double fontSize = settings().fontSize;
    if (isEditorShown()) {
        editor->setFont(sablequill::font({fontSize}));
        return;
    }
    if (!isTextViewStale && readFontSize == fontSize)
        return;
    isTextViewStale = false;
    readFontSize = fontSize;
    textView->showNote(MarkdownParser::attributedString(editContent.text(), fontSize), fontSize,
        readNoteID == bufferNoteID);
    readNoteID = bufferNoteID;
}

void OverlayView::toggleEditing()
{
    overlayManager.isEditing = !overlayManager.isEditing;
    if (overlayManager.isEditing)
        syncEditContent();
    // At once: a key that is pressed before the next turn is not for the view that went away.
    showMode();
}

void OverlayView::startNewNote()
{
    notesManager.createNote();
    overlayManager.isEditing = true;
    syncEditContent();
}

void OverlayView::animated(const std::function<void()>& action)
{
    const QString text = editContent.text();
    const bool wasEditing = overlayManager.isEditing;
    fade->begin();
    action();
    // What stays the same would only flicker.
    if (overlayManager.isEditing == wasEditing && editContent.text() == text)
        fade->cancel();
}

void OverlayView::writeThrough()
{
    if (bufferNoteID)
        notesManager.updateContent(*bufferNoteID, editContent.text());
}

} // namespace sablequill
