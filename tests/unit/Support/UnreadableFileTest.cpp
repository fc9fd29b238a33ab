// SPDX-License-Identifier: MIT
#include "UnreadableFile.h"

#include "TemporaryHome.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using Names = std::vector<std::string>;

class KeepUnreadableFile : public testing::Test {
protected:
    TemporaryHome home;
    const fs::path folder = home.path() / "folder";
    const fs::path file = folder / "notes.json";
};

TEST_F(KeepUnreadableFile, file_itsBytesUnderAnotherName)
{
    writeFile(file, "{");
    fs::permissions(file, fs::perms(0644));
    EXPECT_TRUE(keepUnreadableFile(file));
    EXPECT_EQ(namesIn(folder), (Names{"notes.json", "notes.unreadable.json"}));
    EXPECT_EQ(bytesOf(folder / "notes.unreadable.json"), "{");
    EXPECT_EQ(modeOf(folder / "notes.unreadable.json"), 0600U);
}

TEST_F(KeepUnreadableFile, nameTaken_nextNumber)
{
    for (const char* bytes : {"1", "2", "3"}) {
        fs::remove(file);
        writeFile(file, bytes);
        EXPECT_TRUE(keepUnreadableFile(file));
    }
    EXPECT_EQ(bytesOf(folder / "notes.unreadable.json"), "1");
    EXPECT_EQ(bytesOf(folder / "notes.unreadable.2.json"), "2");
    EXPECT_EQ(bytesOf(folder / "notes.unreadable.3.json"), "3");
}

TEST_F(KeepUnreadableFile, keptBefore_notAgain)
{
    writeFile(file, "{");
    EXPECT_TRUE(keepUnreadableFile(file));
    EXPECT_TRUE(keepUnreadableFile(file));
    EXPECT_EQ(namesIn(folder).size(), 2U);
}

TEST_F(KeepUnreadableFile, noFile_nothingToKeep)
{
    fs::create_directory(folder);
    EXPECT_TRUE(keepUnreadableFile(file));
    EXPECT_TRUE(namesIn(folder).empty());
}

TEST_F(KeepUnreadableFile, link_bytesOfItsTargetBesideTheLink)
{
    writeFile(home.path() / "real", "{");
    fs::create_directory(folder);
    fs::create_symlink("../real", file);
    EXPECT_TRUE(keepUnreadableFile(file));
    EXPECT_FALSE(fs::is_symlink(folder / "notes.unreadable.json"));
    EXPECT_EQ(bytesOf(folder / "notes.unreadable.json"), "{");
}

TEST_F(KeepUnreadableFile, targetOnAnotherFileSystem_copied)
{
    const fs::path elsewhere = "/dev/shm/sablequill-unreadable-" + std::to_string(::getpid());
    writeFile(elsewhere, "{");
    fs::permissions(elsewhere, fs::perms(0644));
    fs::create_directory(folder);
    fs::create_symlink(elsewhere, file);

    const bool isKept = keepUnreadableFile(file);
    fs::remove(elsewhere);

    EXPECT_TRUE(isKept);
    EXPECT_EQ(bytesOf(folder / "notes.unreadable.json"), "{");
    EXPECT_EQ(modeOf(folder / "notes.unreadable.json"), 0600U);
}

TEST_F(KeepUnreadableFile, folderInPlaceOfTheFile_fails)
{
    fs::create_directories(file);
    EXPECT_FALSE(keepUnreadableFile(file));
    EXPECT_EQ(namesIn(folder), Names{"notes.json"});
}

TEST_F(KeepUnreadableFile, loopOfLinks_fails)
{
    fs::create_directory(folder);
    fs::create_symlink("notes.json", file);
    EXPECT_FALSE(keepUnreadableFile(file));
}

} // namespace
} // namespace sablequill
