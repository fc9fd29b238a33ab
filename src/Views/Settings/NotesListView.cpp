// SPDX-License-Identifier: MIT
#include "NotesListView.h"

#include "ContextMenu.h"
#include "NoteRowDelegate.h"
#include "NotesListModel.h"
#include "NotesManager.h"
#include "OverlayScrollBar.h"
#include "PopupStyle.h"

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
    setSelectionMode(SingleSelection);
    viewport()->setAutoFillBackground(false);
    viewport()->setAttribute(Qt::WA_Hover);
    new OverlayScrollBar(this);
    connect(this, &QListView::clicked, this, &NotesListView::select);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
        [this](const QItemSelection& chosen) {
            const QModelIndex row = chosen.indexes().value(0);
            if (row != rows->selected())
                select(row);
        });
    connect(rows, &NotesListModel::dataChanged, this, &NotesListView::followSelection);
    followSelection();
}

QItemSelectionModel::SelectionFlags NotesListView::selectionCommand(
    const QModelIndex&, const QEvent*) const
{
    return QItemSelectionModel::NoUpdate;
}

void NotesListView::rowsAboutToBeRemoved(const QModelIndex& parent, int start, int end)
{
    // Where one row can be selected, the toolkit would go to the next one and scroll to it.
    setSelectionMode(NoSelection);
    QListView::rowsAboutToBeRemoved(parent, start, end);
    setSelectionMode(SingleSelection);
}

void NotesListView::followSelection()
{
    selectionModel()->select(rows->selected(), QItemSelectionModel::ClearAndSelect);
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
    // The note as it was when the menu opened: the list may change while it is open.
    QAction* deletion = menu->addAction(
        QStringLiteral("Delete"), this, [this, chosen = *note] { noteStore.deleteNote(chosen); });
    PopupStyle::setDestructive(*deletion);
    openContextMenu(menu, at);
}

} // namespace sablequill
