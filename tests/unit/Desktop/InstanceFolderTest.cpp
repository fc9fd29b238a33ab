// SPDX-License-Identifier: MIT
#include "InstanceFolder.h"

#include "OtherUser.h"
#include "ScopedVariable.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

/// Creates files with another mask for as long as it lives.
class ScopedMask {
public:
    explicit ScopedMask(mode_t mask)
        : oldMask(::umask(mask))
    {
    }
    ~ScopedMask() { ::umask(oldMask); }

    ScopedMask(const ScopedMask&) = delete;
    ScopedMask& operator=(const ScopedMask&) = delete;

private:
    const mode_t oldMask;
};

class InstanceFolderTest : public testing::Test {
protected:
    using Lock = InstanceFolder::Lock;

    InstanceFolderTest() { fs::create_directory(runtime); }

    static Lock tryLock(const fs::path& folder) { return InstanceFolder(folder).tryLock(); }

    static bool isBelow(const fs::path& path, const fs::path& folder)
    {
        return path.native().starts_with(folder.native() + "/");
    }

    const TemporaryHome home;
    const fs::path runtime = home.path() / "runtime";
    const fs::path folder = home.path() / "folder";
    const ScopedVariable display{"DISPLAY", QByteArray(":0")};
    const ScopedVariable runtimeVariable{"XDG_RUNTIME_DIR", runtime};
    const ScopedVariable stateVariable{"XDG_STATE_HOME"};
};

TEST_F(InstanceFolderTest, candidates_runtimeFolderFirstThenHome)
{
    const std::vector<fs::path> folders = InstanceFolder::candidates();
    ASSERT_EQ(folders.size(), 2U);
    EXPECT_TRUE(isBelow(folders[0], runtime)) << folders[0];
    EXPECT_TRUE(isBelow(folders[1], home.path() / ".local/state")) << folders[1];
    EXPECT_FALSE(fs::exists(folders[0])) << "looking creates nothing";
    EXPECT_FALSE(fs::exists(folders[1])) << "looking creates nothing";
}

TEST_F(InstanceFolderTest, candidates_stateHomeIsSet_usedInsteadOfHome)
{
    const ScopedVariable state("XDG_STATE_HOME", home.path() / "state");
    EXPECT_TRUE(isBelow(InstanceFolder::candidates().at(1), home.path() / "state"));
}

TEST_F(InstanceFolderTest, candidates_relativePaths_ignored)
{
    const ScopedVariable relativeRuntime("XDG_RUNTIME_DIR", QByteArray("runtime"));
    const ScopedVariable relativeState("XDG_STATE_HOME", QByteArray("state"));
    const std::vector<fs::path> folders = InstanceFolder::candidates();
    ASSERT_EQ(folders.size(), 1U);
    EXPECT_TRUE(isBelow(folders[0], home.path() / ".local/state"));
}

TEST_F(InstanceFolderTest, candidates_nothingIsSet_none)
{
    const ScopedVariable noRuntime("XDG_RUNTIME_DIR");
    const ScopedVariable noHome("HOME");
    EXPECT_TRUE(InstanceFolder::candidates().empty());
}

TEST_F(InstanceFolderTest, candidates_runtimeFolderThatIsNotThereOrOpenToOthers_leftOut)
{
    fs::permissions(runtime, fs::perms::all);
    EXPECT_EQ(InstanceFolder::candidates().size(), 1U);
    fs::remove(runtime);
    EXPECT_EQ(InstanceFolder::candidates().size(), 1U);
    writeFile(runtime, "a file");
    EXPECT_EQ(InstanceFolder::candidates().size(), 1U);
}

TEST_F(InstanceFolderTest, candidates_runtimeFolderOfAnotherUser_leftOut)
{
    SABLEQUILL_NEEDS_OTHER_USER();
    ASSERT_EQ(::chown(runtime.c_str(), otherUser, otherUser), 0);
    EXPECT_EQ(InstanceFolder::candidates().size(), 1U);
}

TEST_F(InstanceFolderTest, candidates_screensOfOneDisplay_sameFolders)
{
    const std::vector<fs::path> folders = InstanceFolder::candidates();
    const ScopedVariable otherScreen("DISPLAY", QByteArray(":0.1"));
    EXPECT_EQ(InstanceFolder::candidates(), folders);
}

TEST_F(InstanceFolderTest, candidates_otherDisplays_otherFolders)
{
    const std::vector<QByteArray> displays = {":0", ":1", ":00", "localhost:10", "localhost_10",
        "localhost%3A10", "host.example:10.0", "host.other:10.0", "../escape:0", "a/b:0", ".", ""};
    std::vector<fs::path> folders;
    for (const QByteArray& name : displays) {
        const ScopedVariable variable("DISPLAY", name);
        folders.push_back(InstanceFolder::candidates().at(0));
        EXPECT_EQ(folders.back().parent_path(), runtime / "sablequill") << name.toStdString();
        EXPECT_EQ(std::count(folders.begin(), folders.end(), folders.back()), 1)
            << name.toStdString();
    }
}

TEST_F(InstanceFolderTest, open_anyMask_closedToOthers)
{
    for (const mode_t mask : {0U, 0022U, 0077U}) {
        const fs::path fresh = folder / std::to_string(mask);
        fs::create_directory(folder);
        const ScopedMask scope(mask);
        EXPECT_NE(InstanceFolder(fresh).descriptor(), -1);
        EXPECT_EQ(modeOf(fresh), 0700U) << mask;
    }
}

TEST_F(InstanceFolderTest, open_lockFile_closedToOthers)
{
    const ScopedMask scope(0);
    EXPECT_EQ(tryLock(folder), Lock::taken);
    EXPECT_EQ(modeOf(folder / "lock"), 0600U);
}

TEST_F(InstanceFolderTest, open_folderThatOthersCanRead_closedAgain)
{
    fs::create_directory(folder);
    fs::permissions(folder, fs::perms(0755));
    EXPECT_EQ(tryLock(folder), Lock::taken);
    EXPECT_EQ(modeOf(folder), 0700U);
}

TEST_F(InstanceFolderTest, open_folderThatOthersCanWrite_notUsed)
{
    fs::create_directory(folder);
    for (const unsigned mode : {0770U, 0707U, 0777U}) {
        fs::permissions(folder, fs::perms(mode));
        EXPECT_EQ(tryLock(folder), Lock::impossible);
        EXPECT_EQ(modeOf(folder), mode);
    }
    EXPECT_TRUE(namesIn(folder).empty());
}

TEST_F(InstanceFolderTest, open_folderOfAnotherUser_notUsed)
{
    SABLEQUILL_NEEDS_OTHER_USER();
    fs::create_directory(folder);
    fs::permissions(folder, fs::perms(0700));
    ASSERT_EQ(::chown(folder.c_str(), otherUser, otherUser), 0);
    EXPECT_EQ(tryLock(folder), Lock::impossible);
    EXPECT_TRUE(namesIn(folder).empty());
}

TEST_F(InstanceFolderTest, open_notAFolder_notUsed)
{
    fs::create_directory(home.path() / "elsewhere");
    fs::create_directory_symlink("elsewhere", folder);
    EXPECT_EQ(tryLock(folder), Lock::impossible);
    EXPECT_TRUE(namesIn(home.path() / "elsewhere").empty());
    fs::remove(folder);
    writeFile(folder, "a file");
    EXPECT_EQ(tryLock(folder), Lock::impossible);
}

TEST_F(InstanceFolderTest, open_lockThatIsALink_notFollowed)
{
    fs::create_directory(folder);
    fs::create_symlink(home.path() / "target", folder / "lock");
    EXPECT_EQ(tryLock(folder), Lock::impossible);
    EXPECT_FALSE(fs::exists(home.path() / "target"));
}

TEST_F(InstanceFolderTest, tryLock_oneHolderAtATime)
{
    {
        const InstanceFolder holder(folder);
        const InstanceFolder other(folder);
        EXPECT_EQ(holder.tryLock(), Lock::taken);
        EXPECT_EQ(other.tryLock(), Lock::heldByAnother);
    }
    EXPECT_EQ(tryLock(folder), Lock::taken);
}

} // namespace
} // namespace sablequill
