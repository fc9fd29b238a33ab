// SPDX-License-Identifier: MIT
#include "Files.h"

#include "FileDescriptor.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <QByteArrayList>

#include <fcntl.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <future>
#include <string>
#include <vector>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

class FilesTest : public testing::Test {
protected:
    TemporaryHome home;
    const fs::path file = home.path() / "file";
};

TEST_F(FilesTest, exists_whatIsThereAndWhatIsNot)
{
    EXPECT_FALSE(Files::exists(file));
    EXPECT_TRUE(Files::exists(home.path()));
    writeFile(file, {});
    EXPECT_TRUE(Files::exists(file));
}

TEST_F(FilesTest, exists_linksAreFollowed)
{
    fs::create_symlink("target", file);
    EXPECT_FALSE(Files::exists(file));
    writeFile(home.path() / "target", {});
    EXPECT_TRUE(Files::exists(file));
}

TEST_F(FilesTest, exists_whereNothingCanBeSaid_maybe)
{
    fs::create_symlink("file", file);
    EXPECT_TRUE(Files::exists(file));
}

TEST_F(FilesTest, read_allBytes)
{
    for (const QByteArray& bytes :
        {QByteArray(""), QByteArray("a\0\xFF\n", 4), QByteArray(5'000'000, 'x')}) {
        writeFile(file, bytes);
        EXPECT_EQ(Files::read(file), bytes);
    }
}

TEST_F(FilesTest, read_behindTheBytes_zerosMayBeRead)
{
    for (const qsizetype size : {0, 1, 4096, 9'000'000}) {
        std::ofstream(file) << std::string(static_cast<std::size_t>(size), 'x');
        const auto bytes = Files::read(file);
        ASSERT_TRUE(bytes);
        ASSERT_EQ(bytes->size(), size);
        EXPECT_EQ(bytes->count('x'), size);
        const char* behind = bytes->constData() + size;
        EXPECT_TRUE(std::all_of(behind, behind + Files::spareBytes, [](char c) { return c == 0; }));
    }
}

TEST_F(FilesTest, read_notARegularFile_nothing)
{
    EXPECT_FALSE(Files::read(file));
    EXPECT_FALSE(Files::read(home.path()));
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_FALSE(Files::read(file));
}

TEST_F(FilesTest, read_largerThanTheLargestFile_nothing)
{
    writeFile(file, {});
    fs::resize_file(file, Files::largestFile + 1);
    EXPECT_FALSE(Files::read(file));
}

TEST_F(FilesTest, write_moreChunksThanOneCallTakes_allInOrder)
{
    std::vector<QByteArray> pieces;
    QByteArray whole;
    for (int i = 0; i < 5000; ++i) {
        pieces.push_back(i % 7 == 0 ? QByteArray() : QByteArray::number(i));
        whole += pieces.back();
    }
    const std::vector<QByteArrayView> chunks(pieces.begin(), pieces.end());
    const FileDescriptor target(::open(file.c_str(), O_WRONLY | O_CREAT, 0600));
    EXPECT_TRUE(Files::write(target.get(), chunks));
    EXPECT_EQ(bytesOf(file), whole);
}

TEST_F(FilesTest, write_nothing_succeeds)
{
    const FileDescriptor target(::open(file.c_str(), O_WRONLY | O_CREAT, 0600));
    EXPECT_TRUE(Files::write(target.get(), {}));
    EXPECT_TRUE(Files::write(target.get(), std::array{QByteArrayView("")}));
}

/// Sends the process a signal again and again that interrupts system calls.
class SignalShower {
public:
    SignalShower()
    {
        struct sigaction action = {};
        action.sa_handler = [](int) {};
        ::sigaction(SIGALRM, &action, &oldAction);
        const itimerval interval{{0, 100}, {0, 100}};
        ::setitimer(ITIMER_REAL, &interval, nullptr);
    }
    ~SignalShower()
    {
        const itimerval none = {};
        ::setitimer(ITIMER_REAL, &none, nullptr);
        // One that was sent and not yet delivered would end the process; ignoring drops it.
        ::signal(SIGALRM, SIG_IGN);
        ::sigaction(SIGALRM, &oldAction, nullptr);
    }

    SignalShower(const SignalShower&) = delete;
    SignalShower& operator=(const SignalShower&) = delete;

private:
    struct sigaction oldAction = {};
};

QByteArray readToTheEnd(int fd)
{
    QByteArray all;
    std::array<char, 1000> part = {};
    ssize_t count = 0;
    while ((count = uninterrupted([&] { return ::read(fd, part.data(), part.size()); })) > 0)
        all.append(part.data(), count);
    return all;
}

TEST_F(FilesTest, write_interruptedAndTakenInParts_allArrives)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const FileDescriptor readEnd(ends[0]);
    std::vector<QByteArray> pieces;
    for (int i = 0; i < 3000; ++i)
        pieces.push_back(QByteArray::number(i).repeated(500));
    const std::vector<QByteArrayView> chunks(pieces.begin(), pieces.end());

    const SignalShower signals;
    auto received = std::async(std::launch::async, readToTheEnd, readEnd.get());
    bool isWritten = false;
    {
        const FileDescriptor writeEnd(ends[1]);
        isWritten = Files::write(writeEnd.get(), chunks);
    }

    EXPECT_TRUE(isWritten);
    EXPECT_EQ(received.get(), QByteArrayList(pieces.begin(), pieces.end()).join());
}

TEST_F(FilesTest, write_unwritableDescriptor_fails)
{
    writeFile(file, "old");
    const FileDescriptor source(::open(file.c_str(), O_RDONLY));
    EXPECT_FALSE(Files::write(source.get(), std::array{QByteArrayView("new")}));
    EXPECT_FALSE(Files::write(-1, std::array{QByteArrayView("new")}));
}

TEST_F(FilesTest, createPrivateFolder_allThatIsMissing_forTheUserAlone)
{
    const fs::path folder = home.path() / "a/b/c";
    Files::createPrivateFolder(folder);
    EXPECT_EQ(modeOf(home.path() / "a"), 0700U);
    EXPECT_EQ(modeOf(home.path() / "a/b"), 0700U);
    EXPECT_EQ(modeOf(folder), 0700U);
}

TEST_F(FilesTest, createPrivateFolder_whatExists_staysAsItIs)
{
    fs::create_directory(home.path() / "a");
    fs::permissions(home.path() / "a", fs::perms(0755));
    Files::createPrivateFolder(home.path() / "a/b");
    Files::createPrivateFolder(home.path() / "a/b");
    EXPECT_EQ(modeOf(home.path() / "a"), 0755U);
    EXPECT_EQ(modeOf(home.path() / "a/b"), 0700U);
}

TEST_F(FilesTest, createPrivateFolder_belowAFile_isDropped)
{
    writeFile(file, "old");
    Files::createPrivateFolder(file / "a");
    EXPECT_EQ(bytesOf(file), "old");
}

TEST_F(FilesTest, behindLinks_noLink_samePath)
{
    EXPECT_EQ(Files::behindLinks(file), file);
    writeFile(file, {});
    EXPECT_EQ(Files::behindLinks(file), file);
}

TEST_F(FilesTest, behindLinks_chain_itsEnd)
{
    fs::create_directory(home.path() / "folder");
    fs::create_symlink("folder/second", file);
    fs::create_symlink("../third", home.path() / "folder/second");
    fs::create_symlink(home.path() / "end", home.path() / "third");
    const auto end = Files::behindLinks(file);
    ASSERT_TRUE(end);
    EXPECT_EQ(*end, home.path() / "end");
}

TEST_F(FilesTest, behindLinks_loop_nothing)
{
    fs::create_symlink("file", file);
    EXPECT_FALSE(Files::behindLinks(file));
}

} // namespace
} // namespace sablequill
