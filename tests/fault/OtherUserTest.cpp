// SPDX-License-Identifier: MIT
#include "OtherUser.h"
#include "ChildProcess.h"
#include "FakeLoginItem.h"
#include "StorageManager.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

/// Files of this user, and another one who may come as far as the folder.
class OtherUserTest : public testing::Test {
protected:
    void SetUp() override
    {
        SABLEQUILL_NEEDS_OTHER_USER();
        fs::create_directories(home.folder().parent_path());
        for (fs::path path = home.folder().parent_path(); path != home.path().parent_path();
             path = path.parent_path())
            fs::permissions(path, fs::perms(0755));
    }

    /// Whether the work succeeds when the other user does it.
    template <typename Work> static bool succeedsAsOther(Work work)
    {
        ChildProcess child([&](const auto&) { return becomeOtherUser() && work() ? 0 : 1; });
        return child.exitStatus() == 0;
    }
    /// The other user runs the program's storage: whether it loads the note that is there, before
    /// it saves another one.
    static bool isLoadedAndSavedByOther()
    {
        return succeedsAsOther([] {
            Journal journal;
            FakeLoginItem loginItem{journal};
            StorageManager storage(loginItem);
            const auto notes = storage.loadNotes();
            storage.saveNotes({{.title = u"theirs"_s}});
            return notes.at(0).title == u"mine";
        });
    }
    void giveFolderAway() const
    {
        ASSERT_EQ(::chown(home.folder().c_str(), otherUser, otherUser), 0);
    }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
    const std::vector<MirkpadItem> note{{.title = u"mine"_s, .content = u"mine"_s}};
};

bool mayRead(const fs::path& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    ::close(file);
    return file >= 0;
}

TEST_F(OtherUserTest, files_ofThisUser_areClosedToOthers)
{
    const mode_t oldMask = ::umask(0);
    writeFile(home.notes(), "{");
    fs::permissions(home.notes(), fs::perms(0644));
    StorageManager storage(loginItem);
    storage.loadNotes();
    storage.saveNotes(note);
    storage.saveSettings({});
    ::umask(oldMask);
    for (const std::string& name : namesIn(home.folder()))
        EXPECT_FALSE(succeedsAsOther([&] { return mayRead(home.folder() / name); })) << name;
    EXPECT_EQ(namesIn(home.folder()).size(), 3U);
    EXPECT_TRUE(succeedsAsOther([&] { return mayRead(home.folder()); }))
        << "the test's own folder is open, else it proves nothing";
}

TEST_F(OtherUserTest, folder_madeByTheProgram_isClosedToOthers)
{
    StorageManager storage(loginItem);
    EXPECT_TRUE(succeedsAsOther([&] { return mayRead(home.folder().parent_path()); }));
    EXPECT_FALSE(succeedsAsOther([&] { return mayRead(home.folder()); }));
}

TEST_F(OtherUserTest, notes_ownedBySomeoneElseAndClosed_areNeverLost)
{
    StorageManager(loginItem).saveNotes(note);
    giveFolderAway();
    const QByteArray bytes = bytesOf(home.notes());
    EXPECT_FALSE(isLoadedAndSavedByOther());
    const auto names = namesIn(home.folder());
    EXPECT_TRUE(std::any_of(names.begin(), names.end(),
        [&](const std::string& name) { return bytesOf(home.folder() / name) == bytes; }));
}

TEST_F(OtherUserTest, notes_ownedBySomeoneElseAndOpen_areLoadedAndReplaced)
{
    StorageManager(loginItem).saveNotes(note);
    fs::permissions(home.notes(), fs::perms(0644));
    giveFolderAway();
    EXPECT_TRUE(isLoadedAndSavedByOther());
    struct stat status = {};
    ASSERT_EQ(::stat(home.notes().c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, otherUser);
    EXPECT_EQ(StorageManager(loginItem).loadNotes().front().title, u"theirs"_s);
}

TEST_F(OtherUserTest, folder_ownedBySomeoneElse_notesAreShownAndStay)
{
    StorageManager(loginItem).saveNotes(note);
    fs::permissions(home.notes(), fs::perms(0644));
    fs::permissions(home.folder(), fs::perms(0755));
    const QByteArray bytes = bytesOf(home.notes());
    EXPECT_TRUE(isLoadedAndSavedByOther());
    EXPECT_EQ(bytesOf(home.notes()), bytes);
    EXPECT_EQ(namesIn(home.folder()), std::vector<std::string>{"notes.json"});
}

} // namespace
} // namespace sablequill
