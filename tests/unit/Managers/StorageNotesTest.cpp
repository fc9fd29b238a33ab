// SPDX-License-Identifier: MIT
#include "StorageManager.h"

#include "FakeLoginItem.h"
#include "FileSizeLimit.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using Names = std::vector<std::string>;

const auto welcomeContent =
    u"# Welcome to Sablequill\n\nYour floating teleprompter for calls, recordings, and "
    u"presentations.\n\n**Mirk mode** hides this overlay from screen recordings when "
    u"possible.\n\n## Tips\n- Use `# Heading` for sections\n- Use `- bullet` for lists\n- Use "
    u"`**bold**` for emphasis\n\nSwitch notes with \u2318\u21E7\u2191 / \u2318\u21E7\u2193"_s;

constexpr auto twoNotes = R"([
    {"id": "0F0E0D0C-0B0A-4908-8706-050403020100", "title": "one", "content": "1",
     "createdAt": "2026-01-31T09:15:00Z", "updatedAt": "2026-01-31T09:15:00Z"},
    {"id": "1F0E0D0C-0B0A-4908-8706-050403020100", "title": "two", "content": "2",
     "createdAt": "2026-01-31T09:15:00Z", "updatedAt": "2026-01-31T09:15:00Z"}
])";

class StorageNotes : public testing::Test {
protected:
    /// What the next start of the program finds.
    std::vector<MirkpadItem> load() { return StorageManager(loginItem).loadNotes(); }

    void expectWelcome(const std::vector<MirkpadItem>& notes)
    {
        ASSERT_EQ(notes.size(), 1U);
        EXPECT_EQ(notes.front().title, u"Welcome"_s);
        EXPECT_EQ(notes.front().content, welcomeContent);
    }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
    const std::vector<MirkpadItem> note{{.title = u"mine"_s, .content = u"mine"_s}};
};

TEST_F(StorageNotes, noFile_oneFreshWelcomeNoteThatIsNotWritten)
{
    StorageManager storage(loginItem);
    const Timestamp before = currentTime();
    const auto notes = storage.loadNotes();
    expectWelcome(notes);
    EXPECT_FALSE(notes.front().id.isNull());
    EXPECT_NE(notes.front().id, storage.loadNotes().front().id);
    EXPECT_GE(notes.front().createdAt, before);
    EXPECT_EQ(notes.front().createdAt, notes.front().updatedAt);
    EXPECT_FALSE(fs::exists(home.notes()));
}

TEST_F(StorageNotes, emptyArray_emptyList)
{
    writeFile(home.notes(), "[]");
    EXPECT_TRUE(load().empty());
}

TEST_F(StorageNotes, file_notesInItsOrder)
{
    writeFile(home.notes(), "\xEF\xBB\xBF" + QByteArray(twoNotes));
    const auto notes = load();
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].title, u"one"_s);
    EXPECT_EQ(notes[1].title, u"two"_s);
}

TEST_F(StorageNotes, readAhead_nextLoadTakesWhatWasThere)
{
    writeFile(home.notes(), twoNotes);
    StorageManager::readNotesAhead();
    StorageManager storage(loginItem);
    const auto notes = storage.loadNotes();
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_EQ(notes[0].content, u"1"_s);
    EXPECT_EQ(notes[1].content, u"2"_s);
    // Only the next one.
    storage.saveNotes(note);
    EXPECT_EQ(storage.loadNotes().size(), 1U);
}

TEST_F(StorageNotes, readAhead_noFile_welcomeNote)
{
    StorageManager::readNotesAhead();
    expectWelcome(load());
}

TEST_F(StorageNotes, readAhead_unreadableFile_itsBytesAreKept)
{
    writeFile(home.notes(), "no list");
    StorageManager::readNotesAhead();
    StorageManager storage(loginItem);
    expectWelcome(storage.loadNotes());
    storage.saveNotes(note);
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.json"), "no list");
}

TEST_F(StorageNotes, saved_readBackEqualExceptForFractions)
{
    StorageManager storage(loginItem);
    std::vector<MirkpadItem> notes(3);
    notes[1].content = u"über\n\u2028😀"_s + QChar(0);
    storage.saveNotes(notes);
    for (MirkpadItem& item : notes) {
        item.createdAt = std::chrono::floor<std::chrono::seconds>(item.createdAt);
        item.updatedAt = std::chrono::floor<std::chrono::seconds>(item.updatedAt);
    }
    EXPECT_EQ(load(), notes);
    storage.saveNotes({});
    EXPECT_EQ(bytesOf(home.notes()), "[\n]\n");
    EXPECT_TRUE(load().empty());
}

TEST_F(StorageNotes, saved_fileForTheUserAloneAndNoOther)
{
    StorageManager storage(loginItem);
    storage.saveNotes(note);
    EXPECT_EQ(modeOf(home.notes()), 0600U);
    EXPECT_EQ(namesIn(home.folder()), Names{"notes.json"});
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(StorageNotes, link_staysALink)
{
    writeFile(home.path() / "elsewhere/real.json", twoNotes);
    fs::create_directories(home.folder());
    fs::create_symlink(home.path() / "elsewhere/real.json", home.notes());
    StorageManager storage(loginItem);
    EXPECT_EQ(storage.loadNotes().size(), 2U);
    storage.saveNotes(note);
    EXPECT_TRUE(fs::is_symlink(home.notes()));
    EXPECT_EQ(load().front().title, u"mine"_s);
    EXPECT_EQ(namesIn(home.path() / "elsewhere"), Names{"real.json"});
}

TEST_F(StorageNotes, diskFull_oldFileStays)
{
    writeFile(home.notes(), twoNotes);
    StorageManager storage(loginItem);
    storage.loadNotes();
    {
        const FileSizeLimit limit(100);
        storage.saveNotes(note);
    }
    EXPECT_EQ(bytesOf(home.notes()), twoNotes);
    EXPECT_EQ(namesIn(home.folder()), Names{"notes.json"});
    storage.saveNotes(note);
    EXPECT_EQ(load().front().title, u"mine"_s);
}

TEST_F(StorageNotes, folderGone_isMadeAgain)
{
    StorageManager storage(loginItem);
    fs::remove(home.folder());
    storage.saveNotes(note);
    EXPECT_EQ(load().front().title, u"mine"_s);
    EXPECT_EQ(modeOf(home.folder()), 0700U);
}

TEST_F(StorageNotes, writeFailed_nextWriteOfTheSettingsBringsTheNotesToo)
{
    StorageManager storage(loginItem);
    {
        const FileSizeLimit limit(1);
        storage.saveNotes(note);
    }
    ASSERT_FALSE(fs::exists(home.notes()));
    storage.saveSettings({});
    EXPECT_EQ(load().front().title, u"mine"_s);
}

TEST_F(StorageNotes, writeFailedTwice_newerNotesAreBrought)
{
    StorageManager storage(loginItem);
    {
        const FileSizeLimit limit(1);
        storage.saveNotes({});
        storage.saveNotes(note);
        storage.saveSettings({});
    }
    storage.saveSettings({});
    EXPECT_EQ(load().front().title, u"mine"_s);
}

TEST_F(StorageNotes, writeFailed_endOfTheRunBringsThem)
{
    {
        StorageManager storage(loginItem);
        {
            const FileSizeLimit limit(1);
            storage.saveNotes(note);
            storage.saveSettings({.opacity = 0.5});
        }
    }
    EXPECT_EQ(load().front().title, u"mine"_s);
    EXPECT_EQ(StorageManager(loginItem).settings.opacity, 0.5);
}

TEST_F(StorageNotes, written_laterSettingsLeaveTheFileAlone)
{
    StorageManager storage(loginItem);
    storage.saveNotes(note);
    writeFile(home.notes(), twoNotes);
    storage.saveSettings({});
    EXPECT_EQ(bytesOf(home.notes()), twoNotes);
}

TEST_F(StorageNotes, folderInPlaceOfTheFile_welcomeAndSavesDropped)
{
    fs::create_directories(home.notes());
    StorageManager storage(loginItem);
    expectWelcome(storage.loadNotes());
    storage.saveNotes(note);
    EXPECT_TRUE(fs::is_directory(home.notes()));
    EXPECT_EQ(namesIn(home.folder()), Names{"notes.json"});
}

class UnreadableNotes : public StorageNotes, public testing::WithParamInterface<QByteArray> { };

TEST_P(UnreadableNotes, load_welcomeAndTheNextSaveKeepsTheBytes)
{
    writeFile(home.notes(), GetParam());
    StorageManager storage(loginItem);
    expectWelcome(storage.loadNotes());
    EXPECT_EQ(bytesOf(home.notes()), GetParam());
    EXPECT_EQ(namesIn(home.folder()), Names{"notes.json"});

    storage.saveNotes(note);
    storage.saveNotes({});
    EXPECT_EQ(bytesOf(home.notes()), "[\n]\n");
    EXPECT_EQ(namesIn(home.folder()), (Names{"notes.json", "notes.unreadable.json"}));
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.json"), GetParam());
    EXPECT_EQ(modeOf(home.folder() / "notes.unreadable.json"), 0600U);
}

INSTANTIATE_TEST_SUITE_P(Rows, UnreadableNotes,
    testing::Values("", "[", "{}", "[{}]", QByteArray(twoNotes).chopped(1),
        QByteArray(twoNotes).replace("\"title\": \"two\", ", ""),
        QByteArray(twoNotes).replace("\"two\"", "2"),
        QByteArray(twoNotes).replace("00Z\"}\n", "00.5Z\"}\n"), QByteArray(1000, '\0'),
        QByteArray("\xFF\xFE[\0]\0", 6)));

TEST_F(StorageNotes, unreadableAgain_nextNumber)
{
    for (const char* bytes : {"1", "2", "3"}) {
        writeFile(home.notes(), bytes);
        StorageManager storage(loginItem);
        storage.loadNotes();
        storage.saveNotes({});
    }
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.json"), "1");
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.2.json"), "2");
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.3.json"), "3");
}

TEST_F(StorageNotes, readable_nothingIsKept)
{
    writeFile(home.notes(), twoNotes);
    StorageManager storage(loginItem);
    storage.loadNotes();
    storage.saveNotes({});
    EXPECT_EQ(namesIn(home.folder()), Names{"notes.json"});
}

TEST_F(StorageNotes, bytesCannotBeKept_fileStaysUntilTheyCan)
{
    // A second name is not possible across file systems, and for a copy there is no room.
    const fs::path elsewhere = "/dev/shm/sablequill-notes-" + std::to_string(::getpid());
    const QByteArray bytes(100'000, 'x');
    writeFile(elsewhere, bytes);
    fs::create_directories(home.folder());
    fs::create_symlink(elsewhere, home.notes());
    StorageManager storage(loginItem);
    expectWelcome(storage.loadNotes());
    {
        const FileSizeLimit limit(50'000);
        storage.saveNotes({});
        EXPECT_EQ(bytesOf(elsewhere), bytes);
        EXPECT_EQ(namesIn(home.folder()), Names{"notes.json"});
    }

    storage.saveNotes({});

    EXPECT_EQ(bytesOf(elsewhere), "[\n]\n");
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.json"), bytes);
    fs::remove(elsewhere);
}

} // namespace
} // namespace sablequill
