// SPDX-License-Identifier: MIT
#include "AtomicFile.h"

#include "FileDescriptor.h"
#include "FileSizeLimit.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/wait.h>

#include <array>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using Names = std::vector<std::string>;

/// A signal that nobody handles ends the process at once, wherever it is.
void endProcessIn(int microseconds)
{
    const itimerval timer{{0, 0}, {0, microseconds}};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
}

class AtomicFileTest : public testing::Test {
protected:
    AtomicFileTest() { fs::create_directory(folder); }

    bool replace(QByteArrayView bytes) { return AtomicFile(file).replace(std::array{bytes}); }

    TemporaryHome home;
    const fs::path folder = home.path() / "folder";
    const fs::path file = folder / "notes.json";
};

TEST_F(AtomicFileTest, replace_newFile_forTheUserAlone)
{
    EXPECT_TRUE(replace("new"));
    EXPECT_EQ(bytesOf(file), "new");
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(namesIn(folder), Names{"notes.json"});
}

TEST_F(AtomicFileTest, replace_oldFile_anotherFileInItsPlace)
{
    writeFile(file, "old and longer");
    fs::permissions(file, fs::perms(0644));
    const FileDescriptor reader(::open(file.c_str(), O_RDONLY));

    EXPECT_TRUE(replace("new"));

    EXPECT_EQ(bytesOf(file), "new");
    EXPECT_EQ(modeOf(file), 0600U);
    std::array<char, 20> seen = {};
    EXPECT_EQ(::read(reader.get(), seen.data(), seen.size()), 14);
}

TEST_F(AtomicFileTest, replace_chunks_oneAfterTheOther)
{
    EXPECT_TRUE(AtomicFile(file).replace(
        std::array{QByteArrayView("a"), QByteArrayView(), QByteArrayView("\0b", 2)}));
    EXPECT_EQ(bytesOf(file), QByteArray("a\0b", 3));
    EXPECT_TRUE(AtomicFile(file).replace({}));
    EXPECT_EQ(bytesOf(file), "");
}

TEST_F(AtomicFileTest, replace_noRoom_oldFileAndNothingElse)
{
    writeFile(file, "old");
    {
        const FileSizeLimit limit(4096);
        EXPECT_FALSE(replace(QByteArray(10'000, 'x')));
    }
    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(namesIn(folder), Names{"notes.json"});
}

TEST_F(AtomicFileTest, replace_folderMissing_fails)
{
    fs::remove(folder);
    EXPECT_FALSE(replace("new"));
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(AtomicFileTest, replace_folderIsAFile_fails)
{
    fs::remove(folder);
    writeFile(folder, "old");
    EXPECT_FALSE(replace("new"));
    EXPECT_EQ(bytesOf(folder), "old");
}

TEST_F(AtomicFileTest, replace_folderInPlaceOfTheFile_fails)
{
    fs::create_directory(file);
    EXPECT_FALSE(replace("new"));
    EXPECT_TRUE(fs::is_directory(file));
    EXPECT_EQ(namesIn(folder), Names{"notes.json"});
}

TEST_F(AtomicFileTest, replace_pipeInPlaceOfTheFile_fails)
{
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(replace("new"));
    EXPECT_TRUE(fs::is_fifo(file));
}

TEST_F(AtomicFileTest, replace_link_staysAndLeadsToTheNewBytes)
{
    writeFile(home.path() / "elsewhere/real", "old");
    fs::create_symlink("../elsewhere/real", file);

    EXPECT_TRUE(replace("new"));

    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(bytesOf(home.path() / "elsewhere/real"), "new");
    EXPECT_EQ(namesIn(folder), Names{"notes.json"});
    EXPECT_EQ(namesIn(home.path() / "elsewhere"), Names{"real"});
}

TEST_F(AtomicFileTest, replace_linkToNothingYet_makesItsTarget)
{
    fs::create_symlink(home.path() / "real", file);
    EXPECT_TRUE(replace("new"));
    EXPECT_TRUE(fs::is_symlink(file));
    EXPECT_EQ(bytesOf(home.path() / "real"), "new");
}

TEST_F(AtomicFileTest, replace_linkInALoop_fails)
{
    fs::create_symlink("notes.json", file);
    EXPECT_FALSE(replace("new"));
    EXPECT_EQ(namesIn(folder), Names{"notes.json"});
}

TEST_F(AtomicFileTest, removeStaleTemporaries_leftovers_gone)
{
    writeFile(file, "old");
    writeFile(folder / ".notes.json.a1B2c3.tmp", "part");
    writeFile(folder / ".notes.json.XXXXXX.tmp", "");
    AtomicFile(file).removeStaleTemporaries();
    EXPECT_EQ(namesIn(folder), Names{"notes.json"});
}

TEST_F(AtomicFileTest, removeStaleTemporaries_everythingElse_stays)
{
    const Names others{".notes.json.a1B2c.tmp", ".notes.json.a1B2c3.bak", ".notes.json.a1B2c3d.tmp",
        ".settings.json.a1B2c3.tmp", "notes.json.a1B2c3.tmp"};
    for (const std::string& name : others)
        writeFile(folder / name, "");
    AtomicFile(file).removeStaleTemporaries();
    EXPECT_EQ(namesIn(folder), others);
}

TEST_F(AtomicFileTest, removeStaleTemporaries_foldersAndLinks_stay)
{
    writeFile(home.path() / "precious", "old");
    fs::create_symlink(home.path() / "precious", folder / ".notes.json.aaaaaa.tmp");
    fs::create_directory(folder / ".notes.json.bbbbbb.tmp");
    AtomicFile(file).removeStaleTemporaries();
    EXPECT_EQ(namesIn(folder).size(), 2U);
    EXPECT_EQ(bytesOf(home.path() / "precious"), "old");
}

TEST_F(AtomicFileTest, removeStaleTemporaries_livingWriter_staysUntilItEnds)
{
    const fs::path temporary = folder / ".notes.json.a1B2c3.tmp";
    {
        const FileDescriptor writer(::open(temporary.c_str(), O_WRONLY | O_CREAT, 0600));
        ASSERT_EQ(::flock(writer.get(), LOCK_EX), 0);
        AtomicFile(file).removeStaleTemporaries();
        EXPECT_TRUE(fs::exists(temporary));
    }
    AtomicFile(file).removeStaleTemporaries();
    EXPECT_FALSE(fs::exists(temporary));
}

TEST_F(AtomicFileTest, removeStaleTemporaries_behindALink_gone)
{
    writeFile(home.path() / "elsewhere/.real.a1B2c3.tmp", "part");
    fs::create_symlink(home.path() / "elsewhere/real", file);
    AtomicFile(file).removeStaleTemporaries();
    EXPECT_EQ(namesIn(home.path() / "elsewhere"), Names{});
}

TEST_F(AtomicFileTest, removeStaleTemporaries_noFolder_nothing)
{
    fs::remove(folder);
    AtomicFile(file).removeStaleTemporaries();
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(AtomicFileTest, replace_killedAtAnyMoment_oldOrNewBytesAndNoLeftovers)
{
    const QByteArray old(300'000, 'a');
    const QByteArray next(300'000, 'b');
    for (int round = 0; round < 20; ++round) {
        ASSERT_TRUE(replace(old));
        const pid_t writer = ::fork();
        ASSERT_GE(writer, 0);
        if (writer == 0) {
            endProcessIn(200 + round * 500);
            while (replace(next)) { }
            ::_exit(1);
        }
        int status = 0;
        ASSERT_EQ(::waitpid(writer, &status, 0), writer);
        ASSERT_TRUE(WIFSIGNALED(status));

        const QByteArray bytes = bytesOf(file);
        EXPECT_TRUE(bytes == old || bytes == next) << bytes.size();
        AtomicFile(file).removeStaleTemporaries();
        EXPECT_EQ(namesIn(folder), Names{"notes.json"});
    }
}

} // namespace
} // namespace sablequill
