// SPDX-License-Identifier: MIT
#include "FileSizeLimit.h"
#include "NotesFixture.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using Titles = std::vector<QString>;

class NotesManagerTest : public NotesFixture {
protected:
    /// Every save makes the file anew when it is gone.
    bool isSavedBy(const std::function<void()>& action)
    {
        fs::remove(home.notes());
        action();
        return fs::exists(home.notes());
    }
};

TEST_F(NotesManagerTest, start_firstNoteSelectedAndNothingSaved)
{
    start(3);
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"1"_s, u"2"_s}));
    EXPECT_EQ(manager->selectedNoteID.get(), note(0).id);
    EXPECT_FALSE(isSavedBy([&] { NotesManager(std::make_shared<StorageManager>(loginItem)); }));
}

TEST_F(NotesManagerTest, start_noFile_welcomeNoteNotWritten)
{
    const NotesManager first(std::make_shared<StorageManager>(loginItem));
    ASSERT_NE(first.selectedNote(), nullptr);
    EXPECT_EQ(first.selectedNote()->title, u"Welcome"_s);
    EXPECT_FALSE(fs::exists(home.notes()));
}

TEST_F(NotesManagerTest, start_emptyList_nothingSelected)
{
    start(0);
    EXPECT_TRUE(manager->notes->empty());
    EXPECT_EQ(manager->selectedNoteID.get(), std::nullopt);
    EXPECT_EQ(manager->selectedNote(), nullptr);
}

TEST_F(NotesManagerTest, selectedNote_withoutId_first)
{
    start(2);
    manager->selectedNoteID = std::nullopt;
    EXPECT_EQ(selectedTitle(), u"0"_s);
}

TEST_F(NotesManagerTest, selectedNote_danglingId_none)
{
    start(2);
    manager->selectedNoteID = QUuid::createUuid();
    EXPECT_EQ(manager->selectedNote(), nullptr);
}

TEST_F(NotesManagerTest, selectedNote_equalIds_first)
{
    const QUuid id = QUuid::createUuid();
    start({{.title = u"a"_s}, {.id = id, .title = u"b"_s}, {.id = id, .title = u"c"_s}});
    manager->selectedNoteID = id;
    EXPECT_EQ(selectedTitle(), u"b"_s);
}

TEST_F(NotesManagerTest, createNote_topOfTheListSelectedAndSaved)
{
    start(3);
    const Timestamp before = currentTime();
    manager->createNote();
    EXPECT_EQ(titles(), (Titles{u"New Note"_s, u"0"_s, u"1"_s, u"2"_s}));
    EXPECT_EQ(note(0).content, u"# New Note\n\nStart typing..."_s);
    EXPECT_GE(note(0).createdAt, before);
    EXPECT_EQ(note(0).createdAt, note(0).updatedAt);
    EXPECT_EQ(manager->selectedNoteID.get(), note(0).id);
    EXPECT_EQ(takeAnnouncements(), 2);
    EXPECT_EQ(stored().size(), 4U);
    EXPECT_EQ(stored().front().id, note(0).id);
    manager->createNote();
    EXPECT_NE(note(0).id, note(1).id);
}

TEST_F(NotesManagerTest, updateNote_storedAsGivenWithANewStamp)
{
    start(3);
    const Timestamp before = currentTime();
    MirkpadItem changed = note(1);
    changed.title = u"given"_s;
    changed.content = u"# Heading"_s;
    changed.createdAt = {};
    changed.updatedAt = {};
    manager->updateNote(changed);
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"given"_s, u"2"_s}));
    EXPECT_EQ(note(1).content, u"# Heading"_s);
    EXPECT_EQ(note(1).createdAt, Timestamp{});
    EXPECT_GE(note(1).updatedAt, before);
    EXPECT_EQ(takeAnnouncements(), 1);
    EXPECT_EQ(stored()[1].title, u"given"_s);
}

TEST_F(NotesManagerTest, updateNote_unknownId_nothing)
{
    start(2);
    EXPECT_FALSE(isSavedBy([&] { manager->updateNote({.title = u"unknown"_s}); }));
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"1"_s}));
    EXPECT_EQ(takeAnnouncements(), 0);
}

TEST_F(NotesManagerTest, updateContent_contentStampAndTitle)
{
    start(3);
    const MirkpadItem old = note(1);
    const Timestamp before = currentTime();
    manager->updateContent(old.id, u"# New\ntext"_s);
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"New"_s, u"2"_s}));
    EXPECT_EQ(note(1).content, u"# New\ntext"_s);
    EXPECT_EQ(note(1).createdAt, old.createdAt);
    EXPECT_GE(note(1).updatedAt, before);
    EXPECT_EQ(takeAnnouncements(), 3);
    EXPECT_EQ(stored()[1].content, u"# New\ntext"_s);
}

TEST_F(NotesManagerTest, updateContent_eachAnnouncementComesBeforeItsAssignment)
{
    start({{.title = u"old"_s, .updatedAt = {}}});
    const MirkpadItem old = note(0);
    std::vector<MirkpadItem> seen;
    QObject::connect(manager.get(), &ObservableObject::objectWillChange, manager.get(),
        [&] { seen.push_back(note(0)); });
    manager->updateContent(old.id, u"new"_s);
    ASSERT_EQ(seen.size(), 3U);
    EXPECT_EQ(seen[0], old);
    EXPECT_EQ(seen[1].content, u"new"_s);
    EXPECT_EQ(seen[1].updatedAt, old.updatedAt);
    EXPECT_GT(seen[2].updatedAt, old.updatedAt);
    EXPECT_EQ(seen[2].title, old.title);
    EXPECT_EQ(note(0).title, u"new"_s);
}

TEST_F(NotesManagerTest, updateContent_unknownId_nothing)
{
    start(2);
    EXPECT_FALSE(isSavedBy([&] { manager->updateContent(QUuid::createUuid(), u"x"_s); }));
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"1"_s}));
    EXPECT_EQ(takeAnnouncements(), 0);
}

TEST_F(NotesManagerTest, updateContent_withTextAndIdOfTheList_unharmed)
{
    start(2);
    manager->updateContent(manager->notes->at(1).id, manager->notes->at(1).title);
    manager->updateContent(manager->notes->at(1).id, manager->notes->at(1).content);
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"1"_s}));
}

TEST_F(NotesManagerTest, deleteNote_theOnlyOne_aNewNoteInItsPlace)
{
    start(1);
    const MirkpadItem only = note(0);
    manager->deleteNote(only);
    EXPECT_EQ(titles(), Titles{u"New Note"_s});
    EXPECT_NE(note(0).id, only.id);
    EXPECT_EQ(manager->selectedNoteID.get(), note(0).id);
    EXPECT_EQ(takeAnnouncements(), 4);
    ASSERT_EQ(stored().size(), 1U);
    EXPECT_EQ(stored().front().id, note(0).id);
}

TEST_F(NotesManagerTest, deleteNote_selectedThirdOfFive_firstSelected)
{
    start(5);
    select(2);
    takeAnnouncements();
    manager->deleteNote(note(2));
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"1"_s, u"3"_s, u"4"_s}));
    EXPECT_EQ(selectedTitle(), u"0"_s);
    EXPECT_EQ(takeAnnouncements(), 2);
    EXPECT_EQ(stored().size(), 4U);
}

TEST_F(NotesManagerTest, deleteNote_selectedFirst_nextFirstSelected)
{
    start(2);
    manager->deleteNote(note(0));
    EXPECT_EQ(selectedTitle(), u"1"_s);
}

TEST_F(NotesManagerTest, deleteNote_notSelected_selectionKept)
{
    start(3);
    select(2);
    takeAnnouncements();
    manager->deleteNote(note(0));
    EXPECT_EQ(selectedTitle(), u"2"_s);
    EXPECT_EQ(takeAnnouncements(), 1);
    EXPECT_EQ(stored().size(), 2U);
}

TEST_F(NotesManagerTest, deleteNote_nothingSelected_staysSo)
{
    start(2);
    manager->selectedNoteID = std::nullopt;
    manager->deleteNote(note(0));
    EXPECT_EQ(manager->selectedNoteID.get(), std::nullopt);
}

TEST_F(NotesManagerTest, deleteNote_itselfFromTheList_unharmed)
{
    start(3);
    manager->deleteNote(*manager->selectedNote());
    EXPECT_EQ(titles(), (Titles{u"1"_s, u"2"_s}));
    EXPECT_EQ(selectedTitle(), u"1"_s);
}

TEST_F(NotesManagerTest, deleteNote_equalIds_allGone)
{
    const QUuid id = QUuid::createUuid();
    start({{.id = id}, {.title = u"b"_s}, {.id = id}, {.title = u"d"_s}});
    manager->deleteNote(note(0));
    EXPECT_EQ(titles(), (Titles{u"b"_s, u"d"_s}));
}

TEST_F(NotesManagerTest, deleteNote_unknown_savedUnchanged)
{
    start(2);
    EXPECT_TRUE(isSavedBy([&] { manager->deleteNote({}); }));
    EXPECT_EQ(titles(), (Titles{u"0"_s, u"1"_s}));
    EXPECT_EQ(selectedTitle(), u"0"_s);
    EXPECT_EQ(stored().size(), 2U);
}

TEST_F(NotesManagerTest, selectNextAndPrevious_oneStepWrapping)
{
    start(3);
    Titles visited;
    for (int i = 0; i < 4; ++i) {
        manager->selectNext();
        visited.push_back(selectedTitle());
    }
    EXPECT_EQ(visited, (Titles{u"1"_s, u"2"_s, u"0"_s, u"1"_s}));
    visited.clear();
    for (int i = 0; i < 4; ++i) {
        manager->selectPrevious();
        visited.push_back(selectedTitle());
    }
    EXPECT_EQ(visited, (Titles{u"0"_s, u"2"_s, u"1"_s, u"0"_s}));
    EXPECT_EQ(takeAnnouncements(), 8);
}

TEST_F(NotesManagerTest, selectNextAndPrevious_oneNote_staysSelected)
{
    start(1);
    manager->selectNext();
    EXPECT_EQ(selectedTitle(), u"0"_s);
    manager->selectPrevious();
    EXPECT_EQ(selectedTitle(), u"0"_s);
    EXPECT_EQ(takeAnnouncements(), 2);
}

TEST_F(NotesManagerTest, selectNextAndPrevious_emptyList_nothing)
{
    start(0);
    manager->selectNext();
    manager->selectPrevious();
    EXPECT_EQ(manager->selectedNoteID.get(), std::nullopt);
    EXPECT_EQ(takeAnnouncements(), 0);
}

TEST_F(NotesManagerTest, selectNextAndPrevious_nothingValidSelected_first)
{
    start(3);
    for (const std::optional<QUuid>& invalid :
        {std::optional<QUuid>{}, std::optional{QUuid::createUuid()}}) {
        manager->selectedNoteID = invalid;
        manager->selectNext();
        EXPECT_EQ(selectedTitle(), u"0"_s);
        manager->selectedNoteID = invalid;
        manager->selectPrevious();
        EXPECT_EQ(manager->selectedNoteID.get(), note(0).id);
    }
}

TEST_F(NotesManagerTest, selection_isNeverSaved)
{
    start(3);
    EXPECT_FALSE(isSavedBy([&] {
        manager->selectNext();
        manager->selectPrevious();
        manager->selectedNoteID = note(2).id;
    }));
}

TEST_F(NotesManagerTest, savesFail_memoryKeepsEveryChange)
{
    start(2);
    const QByteArray before = bytesOf(home.notes());
    {
        const FileSizeLimit limit(1);
        manager->updateContent(note(0).id, u"edited"_s);
        manager->createNote();
        manager->deleteNote(note(2));
    }
    EXPECT_EQ(titles(), (Titles{u"New Note"_s, u"edited"_s}));
    EXPECT_EQ(bytesOf(home.notes()), before);
}

} // namespace
} // namespace sablequill
