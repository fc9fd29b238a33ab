// SPDX-License-Identifier: MIT
#include "NotesListView.h"

#include "NoteRowDelegate.h"
#include "NotesListModel.h"
#include "NotesManager.h"
#include "OverlayScrollBar.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

namespace sablequill {

NotesListView::NotesListView(NotesManager& noteStore, QWidget* parent)
    : QListView(parent)
    , noteStore(noteStore)
    , rows(new NotesListModel(noteStore, this))
{
    setObjectName(QStringLiteral("notesList"));
    setAccessibleName(tr("Notes"));
    setModel(rows);
    setItemDelegate(new NoteRowDelegate(this));
    setUniformItemSizes(true);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    new OverlayScrollBar(this);
    connect(this, &QListView::clicked, this, &NotesListView::select);
}

void NotesListView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        select(currentIndex());
        break;
    case Qt::Key_F10:
        // The desktop makes a context menu event of the Menu key only.
        if (event->modifiers() == Qt::ShiftModifier) {
            showMenuOfCurrentRow();
            break;
        }
        [[fallthrough]];
    default:
        QListView::keyPressEvent(event);
    }
}

void NotesListView::contextMenuEvent(QContextMenuEvent* event)
{
    if (event->reason() == QContextMenuEvent::Keyboard)
        showMenuOfCurrentRow();
    else
        showMenu(indexAt(event->pos()), event->globalPos());
}

void NotesListView::showMenuOfCurrentRow()
{
    const QModelIndex index = currentIndex();
    scrollTo(index);
    showMenu(index, viewport()->mapToGlobal(visualRect(index).center()));
}

void NotesListView::select(const QModelIndex& index)
{
    if (const MirkpadItem* note = rows->note(index))
        noteStore.selectedNoteID = note->id;
}

void NotesListView::showMenu(const QModelIndex& index, QPoint at)
{
    const MirkpadItem* note = rows->note(index);
    if (!note)
        return;
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    // The note as it was when the menu opened: the list may change while it is open.
    menu->addAction(
        QStringLiteral("Delete"), this, [this, chosen = *note] { noteStore.deleteNote(chosen); });
    menu->popup(at);
}

} // namespace sablequill
