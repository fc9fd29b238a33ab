// SPDX-License-Identifier: MIT
#include "NoteEditor.h"

#include "ContextMenu.h"
#include "OverlayScrollBar.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCursor>

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr int cursorThickness = 2; ///< points

bool isNewLine(const QKeyEvent& event)
{
    const bool isReturn = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isReturn && !(event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier));
}

} // namespace

NoteEditor::NoteEditor(EditBuffer& content)
    : content(content)
{
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setViewportMargins(padding, padding, padding, padding);
    document()->setDocumentMargin(0);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    // The document would bring other characters back than were taken.
    setUndoRedoEnabled(false);
    // The toolkit inverts what lies under its cursor, which shows nothing on a translucent ground.
    setCursorWidth(0);
    new OverlayScrollBar(this);
    connect(document(), &QTextDocument::contentsChange, this, &NoteEditor::takeOver);
    connect(document(), &QTextDocument::contentsChanged, this, &NoteEditor::recutLongBlock);
    connect(document(), &QTextDocument::contentsChanged, this, &NoteEditor::announceEdit);
}

void NoteEditor::load()
{
    const QScopedValueRollback showing(isShowing, true);
    history.clear();
    setPlainText(content.setText(content.text()));
    QTextCursor end(document());
    end.movePosition(QTextCursor::End);
    setTextCursor(end);
    verticalScrollBar()->setValue(0);
}

void NoteEditor::takeOver(int position, int removed, int added)
{
    if (isShowing)
        return;
    // Now and then the document counts the end of its last block too, in both numbers.
    const int length = document()->characterCount() - 1;
    const int end = std::min(position + added, length);
    removed = static_cast<int>(content.shownLength()) - (length - (end - position));
    QTextCursor cursor(document());
    cursor.setPosition(position);
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    if (const auto edit = content.shownChanged(position, removed, cursor.selectedText())) {
        history.record(*edit);
        isEditNew = true;
    }
}

void NoteEditor::announceEdit()
{
    if (!isShowing && std::exchange(isEditNew, false))
        Q_EMIT edited();
}

void NoteEditor::recutLongBlock()
{
    const QTextBlock block = textCursor().block();
    if (isShowing || block.length() <= 2 * ShownText::longestBlock)
        return;
    const qsizetype cursorAt = content.place(textCursor().position()).text;
    const qsizetype start = content.place(block.position()).text;
    const QString text =
        content.textBetween(block.position(), block.position() + block.length() - 1);
    showEdit(content.apply({start, text, text}));
    QTextCursor cursor = textCursor();
    cursor.setPosition(static_cast<int>(content.shownPosition(cursorAt)));
    setTextCursor(cursor);
}

void NoteEditor::undoEdit()
{
    if (const auto edit = history.undo())
        make(*edit);
}

void NoteEditor::redoEdit()
{
    if (const auto edit = history.redo())
        make(*edit);
}

void NoteEditor::replaceSelection(const QString& text)
{
    const QTextCursor cursor = textCursor();
    const TextEdit edit = content.replacement(cursor.selectionStart(), cursor.selectionEnd(), text);
    if (edit.removed == edit.inserted)
        return;
    history.record(edit);
    make(edit);
}

void NoteEditor::make(const TextEdit& edit)
{
    showEdit(content.apply(edit));
    QTextCursor cursor = textCursor();
    const qsizetype end = edit.position + edit.inserted.size();
    cursor.setPosition(static_cast<int>(content.shownPosition(end)));
    setTextCursor(cursor);
    ensureCursorVisible();
    Q_EMIT edited();
}

void NoteEditor::showEdit(const ShownEdit& edit)
{
    const QScopedValueRollback showing(isShowing, true);
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(edit.position));
    cursor.setPosition(static_cast<int>(edit.position + edit.removed), QTextCursor::KeepAnchor);
    cursor.insertText(edit.inserted);
}

QMimeData* NoteEditor::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    auto* data = new QMimeData;
    data->setText(content.textBetween(cursor.selectionStart(), cursor.selectionEnd()));
    return data;
}

void NoteEditor::insertFromMimeData(const QMimeData* source)
{
    replaceSelection(source->text());
}

void NoteEditor::dropEvent(QDropEvent* event)
{
    const QString text = event->mimeData()->text();
    const QTextCursor target = cursorForPosition(event->position().toPoint());
    // The cursor follows its place in the text when the dragged text is taken out before it.
    if (event->source() == viewport() && event->dropAction() == Qt::MoveAction)
        replaceSelection({});
    setTextCursor(target);
    replaceSelection(text);
    event->acceptProposedAction();
    QDragLeaveEvent leave;
    dragLeaveEvent(&leave);
}

void NoteEditor::contextMenuEvent(QContextMenuEvent* event)
{
    auto* menu = new QMenu(this);
    const auto add = [&](const QString& title, QKeySequence::StandardKey key, bool isEnabled,
                         auto verb) {
        QAction* action = menu->addAction(title, this, verb);
        action->setShortcut(key);
        action->setEnabled(isEnabled);
    };
    const bool hasSelection = textCursor().hasSelection();
    add(QStringLiteral("Undo"), QKeySequence::Undo, history.canUndo(), &NoteEditor::undoEdit);
    add(QStringLiteral("Redo"), QKeySequence::Redo, history.canRedo(), &NoteEditor::redoEdit);
    menu->addSeparator();
    add(QStringLiteral("Cut"), QKeySequence::Cut, hasSelection, &QPlainTextEdit::cut);
    add(QStringLiteral("Copy"), QKeySequence::Copy, hasSelection, &QPlainTextEdit::copy);
    add(QStringLiteral("Paste"), QKeySequence::Paste, canPaste(), &QPlainTextEdit::paste);
    add(QStringLiteral("Delete"), QKeySequence::Delete, hasSelection,
        [this] { replaceSelection({}); });
    menu->addSeparator();
    add(QStringLiteral("Select All"), QKeySequence::SelectAll, !content.text().isEmpty(),
        &QPlainTextEdit::selectAll);
    openContextMenu(menu, event->globalPos());
}

bool NoteEditor::focusNextPrevChild(bool next)
{
    // Tab is a character here; Shift+Tab leaves the editor.
    return next ? QPlainTextEdit::focusNextPrevChild(next)
                : QAbstractScrollArea::focusNextPrevChild(next);
}

void NoteEditor::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Undo))
        undoEdit();
    else if (event->matches(QKeySequence::Redo))
        redoEdit();
    else if (isNewLine(*event))
        replaceSelection(QStringLiteral("\n"));
    else if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier)
        QAbstractScrollArea::focusNextPrevChild(true);
    else {
        stepOverSoftBreak(*event);
        QPlainTextEdit::keyPressEvent(event);
    }
}

void NoteEditor::paintEvent(QPaintEvent* event)
{
    QPlainTextEdit::paintEvent(event);
    if (!hasFocus())
        return;
    QRect cursor = cursorRect();
    cursor.setWidth(cursorThickness);
    cursor.moveLeft(std::max(0, cursor.left() - cursorThickness / 2));
    QPainter(viewport()).fillRect(cursor, palette().color(QPalette::Text));
}

void NoteEditor::stepOverSoftBreak(const QKeyEvent& event)
{
    QTextCursor cursor = textCursor();
    if (cursor.hasSelection())
        return;
    // A soft break is nothing that could be deleted: what is meant lies behind it.
    const bool deletesBefore = event.key() == Qt::Key_Backspace;
    const bool deletesAfter = event.key() == Qt::Key_Delete;
    int position = cursor.position();
    if (deletesBefore && content.isSoftBreak(position - 1))
        --position;
    else if (deletesAfter && content.isSoftBreak(position))
        ++position;
    else
        return;
    cursor.setPosition(position);
    setTextCursor(cursor);
}

} // namespace sablequill
