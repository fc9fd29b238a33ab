// SPDX-License-Identifier: MIT
#include "InstanceSocket.h"

#include "ChildProcess.h"
#include "FileDescriptor.h"
#include "OtherUser.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <future>
#include <optional>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <vector>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace sablequill {
namespace {

bool waitUntilReadable(int fd)
{
    pollfd waiting = {fd, POLLIN, 0};
    return ::poll(&waiting, 1, 10'000) == 1;
}

class InstanceSocketTest : public testing::Test {
protected:
    /// For answers that are certain to come.
    static constexpr std::chrono::milliseconds patient = 10s;

    static int openFolder(const fs::path& path)
    {
        fs::create_directories(path);
        return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    }

    std::future<bool> callLater() const
    {
        return std::async(std::launch::async, [this] { return InstanceSocket::call(fd, patient); });
    }

    const TemporaryHome home;
    const fs::path path = home.path() / "folder";
    const FileDescriptor folder{openFolder(path)};
    const int fd = folder.get();
};

TEST_F(InstanceSocketTest, file_closedToOthersAndGoneAtTheEnd)
{
    const mode_t oldMask = ::umask(0);
    {
        const InstanceSocket socket(fd);
        ASSERT_TRUE(socket.isListening());
        EXPECT_TRUE(fs::is_socket(path / "socket"));
        EXPECT_EQ(modeOf(path / "socket"), 0600U);
    }
    ::umask(oldMask);
    EXPECT_TRUE(namesIn(path).empty());
}

TEST_F(InstanceSocketTest, listen_somethingIsLeftThere_replaced)
{
    writeFile(path / "socket", "a file");
    EXPECT_TRUE(InstanceSocket(fd).isListening());
    // A process that is killed removes nothing.
    ChildProcess killed([this](const ChildProcess::Report& report) {
        const InstanceSocket socket(fd);
        report.sendAndStay();
        return 0;
    });
    ASSERT_TRUE(killed.hasReported());
    killed.kill();
    ASSERT_TRUE(fs::is_socket(path / "socket"));
    const InstanceSocket socket(fd);
    EXPECT_TRUE(socket.isListening());
    EXPECT_TRUE(InstanceSocket::call(fd, 0ms));
}

TEST_F(InstanceSocketTest, listen_impossible_saysSoAndRemovesNothing)
{
    fs::create_directory(path / "socket");
    EXPECT_FALSE(InstanceSocket(fd).isListening());
    EXPECT_TRUE(fs::is_directory(path / "socket"));
    EXPECT_FALSE(InstanceSocket(-1).isListening());
}

TEST_F(InstanceSocketTest, listen_longPath_works)
{
    const FileDescriptor deep(openFolder(path / std::string(200, 'a') / std::string(200, 'b')));
    const InstanceSocket socket(deep.get());
    EXPECT_TRUE(socket.isListening());
    EXPECT_TRUE(InstanceSocket::call(deep.get(), 0ms));
    EXPECT_TRUE(socket.answerAll());
}

TEST_F(InstanceSocketTest, call_nobodyListens_false)
{
    EXPECT_FALSE(InstanceSocket::call(fd, patient));
    writeFile(path / "socket", "a file");
    EXPECT_FALSE(InstanceSocket::call(fd, patient));
    EXPECT_FALSE(InstanceSocket::call(-1, patient));
}

TEST_F(InstanceSocketTest, call_answered_true)
{
    const InstanceSocket socket(fd);
    std::future<bool> call = callLater();
    ASSERT_TRUE(waitUntilReadable(socket.descriptor()));
    EXPECT_TRUE(socket.answerAll());
    EXPECT_TRUE(call.get());
}

TEST_F(InstanceSocketTest, call_notAnsweredInTime_trueAndFoundLater)
{
    const InstanceSocket socket(fd);
    EXPECT_TRUE(InstanceSocket::call(fd, 1ms));
    EXPECT_TRUE(socket.answerAll());
}

TEST_F(InstanceSocketTest, call_listenerEndsWithoutAnAnswer_false)
{
    std::optional<InstanceSocket> socket(fd);
    std::future<bool> call = callLater();
    ASSERT_TRUE(waitUntilReadable(socket->descriptor()));
    socket.reset();
    EXPECT_FALSE(call.get());
}

TEST_F(InstanceSocketTest, call_fullQueue_trueAtOnce)
{
    const InstanceSocket socket(fd);
    // Longer than any queue: the kernel's limit is 4096 unless it was raised.
    for (int calls = 0; calls < 20'000; ++calls)
        ASSERT_TRUE(InstanceSocket::call(fd, 0ms));
    const auto start = std::chrono::steady_clock::now();
    EXPECT_TRUE(InstanceSocket::call(fd, patient));
    EXPECT_LT(std::chrono::steady_clock::now() - start, patient);
    EXPECT_TRUE(socket.answerAll());
    EXPECT_FALSE(socket.answerAll());
}

TEST_F(InstanceSocketTest, answerAll_nobodyCalled_false)
{
    EXPECT_FALSE(InstanceSocket(fd).answerAll());
}

TEST_F(InstanceSocketTest, answerAll_manyCalled_allAnswered)
{
    const InstanceSocket socket(fd);
    EXPECT_TRUE(InstanceSocket::call(fd, 0ms));
    std::vector<std::future<bool>> calls;
    std::generate_n(std::back_inserter(calls), 4, [this] { return callLater(); });
    const auto isDone = [](const std::future<bool>& call) {
        return call.wait_for(0s) == std::future_status::ready;
    };
    while (!std::all_of(calls.begin(), calls.end(), isDone)) {
        pollfd waiting = {socket.descriptor(), POLLIN, 0};
        ::poll(&waiting, 1, 10);
        socket.answerAll();
    }
    for (std::future<bool>& call : calls)
        EXPECT_TRUE(call.get());
}

/// What another user can do to a socket, written without the code that is tested.
class StrangerTest : public InstanceSocketTest {
protected:
    void SetUp() override { SABLEQUILL_NEEDS_OTHER_USER(); }

    /// Takes away everything that keeps other users out of the folder.
    void openFolderToEverybody() const
    {
        fs::permissions(home.path(), fs::perms::all);
        fs::permissions(path, fs::perms::all);
    }

    sockaddr_un address() const
    {
        sockaddr_un result = {};
        result.sun_family = AF_UNIX;
        std::snprintf(result.sun_path, sizeof result.sun_path, "%s", (path / "socket").c_str());
        return result;
    }

    /// 0, or the number of the error.
    template <typename Call> int withAddress(Call call, int socket) const
    {
        const sockaddr_un where = address();
        const auto* generic = reinterpret_cast<const sockaddr*>(&where);
        return call(socket, generic, sizeof where) == 0 ? 0 : errno;
    }
};

TEST_F(StrangerTest, connect_keptOutByTheFile)
{
    const InstanceSocket socket(fd);
    openFolderToEverybody();
    ChildProcess stranger([this](const ChildProcess::Report&) {
        const int client = ::socket(AF_UNIX, SOCK_STREAM, 0);
        return becomeOtherUser() ? withAddress(::connect, client) : 0;
    });
    EXPECT_EQ(stranger.exitStatus(), EACCES);
}

TEST_F(StrangerTest, answerAll_strangerConnected_notCountedAndNotAnswered)
{
    const InstanceSocket socket(fd);
    openFolderToEverybody();
    fs::permissions(path / "socket", fs::perms::all);
    ChildProcess stranger([this](const ChildProcess::Report& report) {
        const int client = ::socket(AF_UNIX, SOCK_STREAM, 0);
        if (!becomeOtherUser() || withAddress(::connect, client) != 0)
            return 99;
        report.send();
        char answer = 0;
        return static_cast<int>(::recv(client, &answer, 1, 0));
    });
    ASSERT_TRUE(stranger.hasReported());
    EXPECT_FALSE(socket.answerAll());
    EXPECT_EQ(stranger.exitStatus(), 0) << "the end, and no byte before";
    EXPECT_TRUE(InstanceSocket::call(fd, 0ms));
    EXPECT_TRUE(socket.answerAll());
}

TEST_F(StrangerTest, call_strangerListens_false)
{
    openFolderToEverybody();
    ChildProcess stranger([this](const ChildProcess::Report& report) {
        const int server = ::socket(AF_UNIX, SOCK_STREAM, 0);
        if (becomeOtherUser() && withAddress(::bind, server) == 0 && ::listen(server, 1) == 0)
            report.sendAndStay();
        return 99;
    });
    ASSERT_TRUE(stranger.hasReported());
    EXPECT_FALSE(InstanceSocket::call(fd, patient));
}

} // namespace
} // namespace sablequill
