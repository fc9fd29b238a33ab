// SPDX-License-Identifier: MIT
#include "FaultyProgramTest.h"

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

/// Mounts made from now on are seen by this process and its children, and by nobody else.
bool mayMount()
{
    static const bool isPrivate = ::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0
        && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return isPrivate;
}

/// A small file system in memory at a folder, for as long as this object lives.
class SmallFileSystem {
public:
    explicit SmallFileSystem(fs::path mountPoint)
        : folder(std::move(mountPoint))
    {
        fs::create_directories(folder);
        isMounted =
            mayMount() && ::mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=256k,mode=0700") == 0;
    }
    ~SmallFileSystem()
    {
        if (isMounted)
            ::umount2(folder.c_str(), MNT_DETACH);
    }

    SmallFileSystem(const SmallFileSystem&) = delete;
    SmallFileSystem& operator=(const SmallFileSystem&) = delete;

    bool isThere() const { return isMounted; }
    bool setReadOnly(bool isReadOnly)
    {
        const auto flags =
            static_cast<unsigned long>(isReadOnly ? MS_REMOUNT | MS_RDONLY : MS_REMOUNT);
        return ::mount(nullptr, folder.c_str(), nullptr, flags, nullptr) == 0;
    }
    /// Until no byte more fits.
    void fill() const
    {
        const int file = ::open(filler().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        const std::string page(4096, 'x');
        while (::write(file, page.data(), page.size()) > 0) { }
        ::close(file);
    }
    void empty() const { fs::remove(filler()); }

private:
    fs::path filler() const { return folder / "filler"; }

    const fs::path folder;
    bool isMounted = false;
};

class FolderFaultTest : public FaultyProgramTest {
protected:
    /// With its files on a disk that hides those that were there before.
    void startEditingOnDisk();
};

void FolderFaultTest::startEditingOnDisk()
{
    writeNotes();
    user.writeSettings(settingsWith(savedCard));
    startEditing("kept");
}

TEST_P(FolderFaultTest, fullDisk_whileTyping_goesOnAndBringsAllWhenThereIsRoom)
{
    const SmallFileSystem disk(user.storageFolder());
    if (!disk.isThere())
        GTEST_SKIP() << "may not mount a file system";
    startEditingOnDisk();
    const QByteArray before = notesBytes();
    disk.fill();
    typeUnsaved("xy");
    EXPECT_EQ(notesBytes(), before);
    expectGoesOn();
    disk.empty();
    quickOpen();
    keyboard.tap(KeyCode::end);
    typeSaved("z");
    expectOtherNotesKept();
    endProgram();
    EXPECT_EQ(names(), bothFiles());
}

TEST_P(FolderFaultTest, displayServer_killedOnAFullDisk_endsAndTheOldFilesAreWhole)
{
    const SmallFileSystem disk(user.storageFolder());
    if (!disk.isThere())
        GTEST_SKIP() << "may not mount a file system";
    startEditingOnDisk();
    const QByteArray notes = notesBytes();
    const QByteArray settings = fileBytes(settingsFile());
    disk.fill();
    typeUnsaved("xy");
    killDisplay();
    EXPECT_EQ(notesBytes(), notes);
    EXPECT_EQ(fileBytes(settingsFile()), settings);
    disk.empty();
    EXPECT_EQ(names(), bothFiles());
}

TEST_P(FolderFaultTest, displayServer_killedWhenThereIsRoomAgain_endBringsAll)
{
    const SmallFileSystem disk(user.storageFolder());
    if (!disk.isThere())
        GTEST_SKIP() << "may not mount a file system";
    startEditingOnDisk();
    disk.fill();
    typeUnsaved("xy");
    disk.empty();
    killDisplay();
    expectSaved(0, typed);
    expectOtherNotesKept();
    EXPECT_EQ(names(), bothFiles());
}

TEST_P(FolderFaultTest, readOnlyDisk_fromTheStart_showsTheNotesAndBringsAllWhenItIsWritable)
{
    SmallFileSystem disk(user.storageFolder());
    if (!disk.isThere())
        GTEST_SKIP() << "may not mount a file system";
    writeNotes();
    user.writeSettings(settingsWith(savedCard));
    const QByteArray before = notesBytes();
    ASSERT_TRUE(disk.setReadOnly(true));
    startProgram();
    EXPECT_EQ(overlay.card(), savedCard);
    quickOpen();
    keyboard.chord({KeyCode::leftControl}, KeyCode::a);
    typeUnsaved("xy");
    EXPECT_EQ(notesBytes(), before);
    ASSERT_TRUE(disk.setReadOnly(false));
    typeSaved("z");
    expectOtherNotesKept();
    endProgram();
}

TEST_P(FolderFaultTest, folderRemoved_whileTyping_isMadeAgainWithEverythingInIt)
{
    startEditing("kept");
    fs::remove_all(user.storageFolder());
    typeSaved("x");
    expectOtherNotesKept();
    EXPECT_EQ(fs::status(user.storageFolder()).permissions(), fs::perms::owner_all);
    const Point grip = overlay.headerBackground();
    mouse.drag(grip, {grip.x + 40, grip.y + 30});
    EXPECT_TRUE(waitUntil([&] { return savedFrame().has_value(); }));
    endProgram();
    EXPECT_EQ(names(), bothFiles());
}

TEST_P(FolderFaultTest, fileInPlaceOfTheFolder_whileTyping_isLeftAloneAndAllIsBroughtWhenItIsGone)
{
    startEditing("kept");
    fs::remove_all(user.storageFolder());
    writeBytes(user.storageFolder(), "mine");
    typeUnsaved("xy");
    EXPECT_EQ(fileBytes(user.storageFolder()), "mine");
    expectGoesOn();
    fs::remove(user.storageFolder());
    quickOpen();
    keyboard.tap(KeyCode::end);
    typeSaved("z");
    expectOtherNotesKept();
    endProgram();
}

TEST_P(FolderFaultTest, link_asNotesFile_staysAndItsTargetIsWritten)
{
    fs::create_directories(user.path() / "cloud");
    fs::rename(notesFile(), user.path() / "cloud/my notes.json");
    fs::create_symlink(user.path() / "cloud/my notes.json", notesFile());
    startEditing("kept");
    EXPECT_TRUE(fs::is_symlink(notesFile()));
    EXPECT_TRUE(fileBytes(user.path() / "cloud/my notes.json").contains("\"kept\""));
    expectOtherNotesKept();
    endProgram();
    EXPECT_EQ(names(), bothFiles());
}

INSTANTIATE_WITHOUT_MANAGER(FolderFaultTest);

} // namespace
} // namespace sablequill
