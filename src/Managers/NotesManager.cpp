// SPDX-License-Identifier: MIT
#include "NotesManager.h"

#include "StorageManager.h"
#include "Text.h"

#include <algorithm>
#include <utility>

namespace sablequill {
namespace {

constexpr int derivedTitleLength = 40;

template <typename Notes> auto find(Notes& notes, const QUuid& id)
{
    return std::find_if(
        notes.begin(), notes.end(), [&](const MirkpadItem& note) { return note.id == id; });
}

} // namespace

NotesManager::NotesManager(std::shared_ptr<StorageManager> storage)
    : storage(std::move(storage))
{
    notes = this->storage->loadNotes();
    selectedNoteID = firstNoteID();
}

const MirkpadItem* NotesManager::selectedNote() const
{
    const auto note = selectedNoteID.get() ? find(notes.get(), **selectedNoteID) : notes->begin();
    return note == notes->end() ? nullptr : &*note;
}

void NotesManager::createNote()
{
    const Timestamp now = currentTime();
    MirkpadItem note{
        .title = QStringLiteral("New Note"),
        .content = QStringLiteral("# New Note\n\nStart typing..."),
        .createdAt = now,
        .updatedAt = now,
    };
    const QUuid id = note.id;
    notes.modify([&](auto& list) { list.insert(list.begin(), std::move(note)); });
    selectedNoteID = id;
    persist();
}

void NotesManager::updateNote(const MirkpadItem& note)
{
    const auto position = find(notes.get(), note.id);
    if (position == notes->end())
        return;
    MirkpadItem copy = note;
    copy.updatedAt = currentTime();
    const auto index = static_cast<std::size_t>(position - notes->begin());
    notes.modify([&](auto& list) { list[index] = std::move(copy); });
    persist();
}

void NotesManager::updateContent(const QUuid& id, const QString& content)
{
    const auto position = find(notes.get(), id);
    if (position == notes->end())
        return;
    const auto index = static_cast<std::size_t>(position - notes->begin());
    // The argument may be the text of a note of this list.
    const QString text = content;
    notes.modify([&](auto& list) { list[index].content = text; });
    notes.modify([&](auto& list) { list[index].updatedAt = currentTime(); });
    notes.modify([&](auto& list) { list[index].title = deriveTitle(text); });
    persist();
}

void NotesManager::deleteNote(const MirkpadItem& note)
{
    // The argument may be a note of this list.
    const QUuid id = note.id;
    notes.modify([&](auto& list) {
        std::erase_if(list, [&](const MirkpadItem& candidate) { return candidate.id == id; });
    });
    if (*selectedNoteID == id)
        selectedNoteID = firstNoteID();
    if (notes->empty())
        createNote();
    else
        persist();
}

void NotesManager::selectNext()
{
    selectAtDistance(1);
}

void NotesManager::selectPrevious()
{
    selectAtDistance(notes->size() - 1);
}

void NotesManager::selectAtDistance(std::size_t distance)
{
    if (notes->empty())
        return;
    const auto position = selectedNoteID.get() ? find(notes.get(), **selectedNoteID) : notes->end();
    if (position == notes->end()) {
        selectedNoteID = firstNoteID();
        return;
    }
    const auto index = static_cast<std::size_t>(position - notes->begin());
    selectedNoteID = notes.get()[(index + distance) % notes->size()].id;
}

std::optional<QUuid> NotesManager::firstNoteID() const
{
    if (notes->empty())
        return {};
    return notes->front().id;
}

void NotesManager::persist()
{
    storage->saveNotes(notes);
}

QString NotesManager::deriveTitle(const QString& content)
{
    Text::LineReader lines(content);
    while (const auto line = lines.next()) {
        const QStringView trimmed = Text::trimmedWhitespace(*line);
        // Compared as characters: a mark on the space makes it another one.
        if (Text::graphemePrefix(trimmed, 2) == u"# ")
            return trimmed.sliced(2).toString();
        if (!trimmed.isEmpty())
            return Text::graphemePrefix(trimmed, derivedTitleLength).toString();
    }
    return QStringLiteral("Untitled");
}

} // namespace sablequill
