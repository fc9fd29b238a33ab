// SPDX-License-Identifier: MIT
#include "NoteTextView.h"

#include "ContextMenu.h"
#include "LinkPolicy.h"
#include "OverlayScrollBar.h"

#include <QDesktopServices>
#include <QFocusEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QScrollBar>
#include <QTextCursor>

#include <utility>

namespace sablequill {

NoteTextView::NoteTextView()
    : openLink([](const QUrl& link) { QDesktopServices::openUrl(link); })
{
    setFrameShape(QFrame::NoFrame);
    viewport()->setAutoFillBackground(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    new OverlayScrollBar(this);
    connect(this, &QTextBrowser::anchorClicked, this, &NoteTextView::follow);
}

void NoteTextView::showNote(const AttributedString& note, double fontSize, bool keepsPosition)
{
    const int position = std::exchange(droppedPosition, {}).value_or(verticalScrollBar()->value());
    swapIn(makeNoteDocument(note, fontSize, padding));
    verticalScrollBar()->setValue(keepsPosition ? position : 0);
}

void NoteTextView::dropNote()
{
    droppedPosition = verticalScrollBar()->value();
    swapIn({std::make_unique<QTextDocument>(), ShownText()});
}

void NoteTextView::swapIn(NoteDocument made)
{
    shown = std::move(made.text);
    // The toolkit deletes the document that it made itself, and no other.
    const QPointer<QTextDocument> previous = document();
    made.document->setParent(this);
    // A page without a size is not laid out. The view gives it its own as soon as it has it.
    made.document->setPageSize({0, 0});
    setDocument(made.document.release());
    delete previous;
}

QVariant NoteTextView::loadResource(int, const QUrl&)
{
    return {};
}

QMimeData* NoteTextView::createMimeDataFromSelection() const
{
    const QTextCursor cursor = textCursor();
    auto* data = new QMimeData;
    data->setText(shown.textBetween(cursor.selectionStart(), cursor.selectionEnd()));
    return data;
}

void NoteTextView::contextMenuEvent(QContextMenuEvent* event)
{
    openContextMenu(createStandardContextMenu(event->pos()), event->globalPos());
}

void NoteTextView::focusInEvent(QFocusEvent* event)
{
    QTextBrowser::focusInEvent(event);
    ring.focusChanged(*event);
}

void NoteTextView::focusOutEvent(QFocusEvent* event)
{
    QTextBrowser::focusOutEvent(event);
    ring.focusChanged(*event);
}

void NoteTextView::keyPressEvent(QKeyEvent* event)
{
    // Arrows alone scroll; with Shift they select.
    const Qt::TextInteractionFlags flags = textInteractionFlags();
    if (event->modifiers() & Qt::ShiftModifier)
        setTextInteractionFlags(flags | Qt::TextSelectableByKeyboard);
    QTextBrowser::keyPressEvent(event);
    setTextInteractionFlags(flags);
}

void NoteTextView::mousePressEvent(QMouseEvent* event)
{
    leavesPressToWindow = !hasTextAt(event->position().toPoint());
    if (leavesPressToWindow)
        event->ignore();
    else
        QTextBrowser::mousePressEvent(event);
}

void NoteTextView::mouseMoveEvent(QMouseEvent* event)
{
    if (leavesPressToWindow)
        event->ignore();
    else
        QTextBrowser::mouseMoveEvent(event);
}

void NoteTextView::mouseReleaseEvent(QMouseEvent* event)
{
    if (std::exchange(leavesPressToWindow, false))
        event->ignore();
    else
        QTextBrowser::mouseReleaseEvent(event);
}

void NoteTextView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (hasTextAt(event->position().toPoint()))
        QTextBrowser::mouseDoubleClickEvent(event);
    else
        mousePressEvent(event);
}

void NoteTextView::paintEvent(QPaintEvent* event)
{
    QTextBrowser::paintEvent(event);
    QPainter painter(viewport());
    ring.paint(painter, viewport()->rect().adjusted(2, 2, -2, -2), 6);
}

void NoteTextView::follow(const QUrl& link)
{
    if (mayOpen(link))
        openLink(link);
}

bool NoteTextView::hasTextAt(QPoint position) const
{
    const QRectF column = QRectF(viewport()->rect()).adjusted(padding, 0, -padding, 0);
    if (document()->isEmpty() || !column.contains(position))
        return false;
    const double y = position.y() + verticalScrollBar()->value();
    // Only a note that fits is laid out whole; a longer one fills the view.
    const bool fits = verticalScrollBar()->maximum() == 0;
    const double end = fits ? document()->size().height() - padding : y + 1;
    return y >= padding && y < end;
}

} // namespace sablequill
