// SPDX-License-Identifier: MIT
#pragma once

#include "NotesManager.h"

#include "FakeLoginItem.h"
#include "StorageManager.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace sablequill {

/// A notes manager over a file of some notes titled "0", "1" and so on.
class NotesFixture : public testing::Test {
protected:
    void start(int count)
    {
        std::vector<MirkpadItem> notes;
        for (int i = 0; i < count; ++i)
            notes.push_back({.title = QString::number(i), .content = QString::number(i)});
        start(notes);
    }

    void start(const std::vector<MirkpadItem>& notes)
    {
        StorageManager(loginItem).saveNotes(notes);
        manager = std::make_unique<NotesManager>(std::make_shared<StorageManager>(loginItem));
        QObject::connect(manager.get(), &ObservableObject::objectWillChange, manager.get(),
            [this] { ++announcements; });
    }

    /// What the next start finds in the file.
    std::vector<MirkpadItem> stored() { return StorageManager(loginItem).loadNotes(); }

    std::vector<QString> titles() const
    {
        std::vector<QString> titles;
        for (const MirkpadItem& note : *manager->notes)
            titles.push_back(note.title);
        return titles;
    }

    QString selectedTitle() const
    {
        const MirkpadItem* note = manager->selectedNote();
        return note == nullptr ? QStringLiteral("(none)") : note->title;
    }

    MirkpadItem note(std::size_t index) const { return manager->notes->at(index); }
    void select(std::size_t index) { manager->selectedNoteID = note(index).id; }
    /// The announcements since the last call of this function.
    int takeAnnouncements() { return std::exchange(announcements, 0); }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
    std::unique_ptr<NotesManager> manager;

private:
    int announcements = 0;
};

} // namespace sablequill
