// SPDX-License-Identifier: MIT
#include "StorageManager.h"

#include "FakeLoginItem.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <stdlib.h>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using Names = std::vector<std::string>;

class StorageFolder : public testing::Test {
protected:
    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
};

using StorageFolderDeathTest = StorageFolder;

TEST_F(StorageFolder, firstStart_folderForTheUserAloneWithoutFiles)
{
    StorageManager storage(loginItem);
    storage.loadNotes();
    EXPECT_TRUE(namesIn(home.folder()).empty());
    EXPECT_EQ(modeOf(home.path() / ".local"), 0700U);
    EXPECT_EQ(modeOf(home.path() / ".local/share"), 0700U);
    EXPECT_EQ(modeOf(home.folder()), 0700U);
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(StorageFolder, secondStart_whatIsThereStays)
{
    writeFile(home.folder() / "other", "old");
    fs::permissions(home.folder(), fs::perms(0750));
    const StorageManager storage(loginItem);
    EXPECT_EQ(namesIn(home.folder()), Names{"other"});
    EXPECT_EQ(modeOf(home.folder()), 0750U);
}

TEST_F(StorageFolder, dataHomeAbsolute_used)
{
    ::setenv("XDG_DATA_HOME", (home.path() / "data/home").c_str(), 1);
    StorageManager storage(loginItem);
    storage.saveNotes({});
    EXPECT_EQ(namesIn(home.path() / "data/home/Sablequill"), Names{"notes.json"});
    EXPECT_EQ(modeOf(home.path() / "data"), 0700U);
    EXPECT_FALSE(fs::exists(home.folder()));
}

TEST_F(StorageFolder, dataHomeRelativeOrEmpty_ignored)
{
    for (const char* value : {"", "data", "./data", "~/data"}) {
        ::setenv("XDG_DATA_HOME", value, 1);
        const StorageManager storage(loginItem);
        EXPECT_TRUE(fs::exists(home.folder())) << value;
        EXPECT_EQ(namesIn(home.path()), Names{".local"});
        fs::remove_all(home.path() / ".local");
    }
}

TEST_F(StorageFolder, environmentChanged_nextUseFollows)
{
    StorageManager storage(loginItem);
    const TemporaryHome second;
    StorageManager other(loginItem);
    storage.saveNotes({});
    storage.saveSettings({});
    EXPECT_EQ(namesIn(second.folder()), (Names{"notes.json", "settings.json"}));
    EXPECT_TRUE(namesIn(home.folder()).empty());
}

TEST_F(StorageFolder, temporariesOfAKilledProcess_goneAtTheNextStart)
{
    writeFile(home.folder() / ".notes.json.a1B2c3.tmp", "[");
    writeFile(home.folder() / ".settings.json.a1B2c3.tmp", "{");
    const StorageManager storage(loginItem);
    EXPECT_TRUE(namesIn(home.folder()).empty());
}

TEST_F(StorageFolder, folderCannotBeMade_defaultsAndSilence)
{
    writeFile(home.path() / ".local", "a file");
    StorageManager storage(loginItem);
    EXPECT_EQ(storage.settings, AppSettings{});
    EXPECT_EQ(storage.loadNotes().size(), 1U);
    storage.saveNotes({});
    storage.saveSettings({.opacity = 0.5});
    EXPECT_EQ(storage.settings.opacity, 0.5);
    EXPECT_EQ(bytesOf(home.path() / ".local"), "a file");
    EXPECT_TRUE(journal.take().empty());
}

constexpr auto fatalMessage = "^Unexpectedly found nil while unwrapping an Optional value\n$";

TEST_F(StorageFolderDeathTest, noHome_stops)
{
    for (const char* dataHome : {static_cast<const char*>(nullptr), "", "relative"}) {
        for (const char* homeValue : {static_cast<const char*>(nullptr), "", "relative"}) {
            dataHome ? ::setenv("XDG_DATA_HOME", dataHome, 1) : ::unsetenv("XDG_DATA_HOME");
            homeValue ? ::setenv("HOME", homeValue, 1) : ::unsetenv("HOME");
            EXPECT_EXIT(StorageManager{loginItem}, testing::ExitedWithCode(1), fatalMessage);
        }
    }
}

TEST_F(StorageFolderDeathTest, homeGoneWhileRunning_nextUseStops)
{
    StorageManager storage(loginItem);
    ::unsetenv("HOME");
    EXPECT_EXIT(storage.saveNotes({}), testing::ExitedWithCode(1), fatalMessage);
}

} // namespace
} // namespace sablequill
