// SPDX-License-Identifier: MIT
#include "NotesListModel.h"

#include "NotesManager.h"
#include "Refresh.h"

#include <algorithm>
#include <iterator>

namespace sablequill {

NotesListModel::NotesListModel(NotesManager& noteStore, QObject* parent)
    : QAbstractListModel(parent)
    , noteStore(noteStore)
{
    auto* refreshing = new Refresh(this, [this] { follow(); });
    refreshing->observe(&noteStore);
    follow();
}

const MirkpadItem* NotesListModel::note(const QModelIndex& index) const
{
    const auto row = static_cast<std::size_t>(index.row());
    const std::vector<MirkpadItem>& notes = noteStore.notes;
    const bool isThere = index.isValid() && row < rows.size() && row < notes.size();
    return isThere && notes[row].id == rows[row] ? &notes[row] : nullptr;
}

QModelIndex NotesListModel::selected() const
{
    const auto& selected = noteStore.selectedNoteID.get();
    const auto found = std::find(rows.begin(), rows.end(), selected);
    return found == rows.end() ? QModelIndex() : index(static_cast<int>(found - rows.begin()));
}

int NotesListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows.size());
}

QVariant NotesListModel::data(const QModelIndex& index, int role) const
{
    const MirkpadItem* shown = note(index);
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shown->title;
    case previewRole:
        return shown->preview();
    case isSelectedRole:
        return isSelected(*shown);
    case Qt::AccessibleTextRole:
        return shown->title;
    case Qt::AccessibleDescriptionRole:
        return isSelected(*shown) ? tr("Shown in the overlay. %1").arg(shown->preview())
                                  : shown->preview();
    default:
        return {};
    }
}

bool NotesListModel::isSelected(const MirkpadItem& note) const
{
    return noteStore.selectedNoteID.get() == note.id;
}

void NotesListModel::follow()
{
    const std::vector<MirkpadItem>& notes = noteStore.notes;
    std::vector<QUuid> next;
    next.reserve(notes.size());
    std::transform(notes.begin(), notes.end(), std::back_inserter(next),
        [](const MirkpadItem& note) { return note.id; });

    // What is equal at both ends stays; notes come and go one at a time.
    const auto [oldHead, newHead] =
        std::mismatch(rows.begin(), rows.end(), next.begin(), next.end());
    const auto head = static_cast<int>(oldHead - rows.begin());
    const auto [oldTail, newTail] = std::mismatch(rows.rbegin(),
        std::make_reverse_iterator(oldHead), next.rbegin(), std::make_reverse_iterator(newHead));
    const auto removed = static_cast<int>(oldTail.base() - oldHead);
    const auto inserted = static_cast<int>(newTail.base() - newHead);
    if (removed > 0) {
        beginRemoveRows({}, head, head + removed - 1);
        rows.erase(oldHead, oldTail.base());
        endRemoveRows();
    }
    if (inserted > 0) {
        beginInsertRows({}, head, head + inserted - 1);
        rows = std::move(next);
        endInsertRows();
    }
    if (!rows.empty())
        Q_EMIT dataChanged(index(0), index(static_cast<int>(rows.size()) - 1));
}

} // namespace sablequill
