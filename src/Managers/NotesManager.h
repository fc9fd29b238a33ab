// SPDX-License-Identifier: MIT
#pragma once

#include "MirkpadItem.h"
#include "Published.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace sablequill {

class StorageManager;

/// Owns the list of notes and the selection. Every change of the list is saved at once; the
/// selection is not saved. Unknown ids are ignored.
class NotesManager : public ObservableObject {
public:
    /// Loads the list and selects its first note; saves nothing.
    explicit NotesManager(std::shared_ptr<StorageManager> storage);

    /// In display order.
    Published<std::vector<MirkpadItem>> notes{this};
    /// The note that the overlay shows; may be absent, and may name a note that is gone.
    Published<std::optional<QUuid>> selectedNoteID{this};

    /// The note with the selected id, or null when there is none; without a selected id the first
    /// note, or null when the list is empty. Valid until the list changes.
    const MirkpadItem* selectedNote() const;

    /// Inserts a note at the top and selects it.
    void createNote();
    /// Replaces the note with the same id, stamped with the current time; the title is taken as
    /// given.
    void updateNote(const MirkpadItem& note);
    /// Sets a note's content, stamp and title (derived from the content): three announcements, one
    /// save.
    void updateContent(const QUuid& id, const QString& content);
    /// A deleted selection moves to the first note; the last note deleted is followed by a new one.
    void deleteNote(const MirkpadItem& note);
    /// One down, wrapping; the first note when nothing valid is selected.
    void selectNext();
    /// One up, wrapping; the first note when nothing valid is selected.
    void selectPrevious();

private:
    /// Some places down from the selected note, wrapping.
    void selectAtDistance(std::size_t distance);
    std::optional<QUuid> firstNoteID() const;
    void persist();
    static QString deriveTitle(const QString& content);

    std::shared_ptr<StorageManager> storage;
};

} // namespace sablequill
