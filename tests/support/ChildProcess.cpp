// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sablequill {
namespace {

bool isReadable(int fd, std::chrono::milliseconds patience)
{
    pollfd waiting = {fd, POLLIN, 0};
    return ::poll(&waiting, 1, static_cast<int>(patience.count())) == 1;
}

} // namespace

ChildProcess::Report::Report(int fd)
    : fd(fd)
{
}

void ChildProcess::Report::send() const
{
    if (::write(fd, "!", 1) != 1)
        ::_exit(99);
}

void ChildProcess::Report::sendAndStay() const
{
    send();
    while (true)
        ::pause();
}

ChildProcess::ChildProcess(const std::function<int(const Report&)>& work)
{
    std::array<int, 2> ends = {-1, -1};
    std::array<int, 2> lifeEnds = {-1, -1};
    EXPECT_EQ(::pipe(ends.data()), 0);
    EXPECT_EQ(::pipe(lifeEnds.data()), 0);
    process = ::fork();
    if (process == 0) {
        // A test that crashes takes its children with it.
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::close(ends[0]);
        ::close(lifeEnds[0]);
        ::_exit(work(Report(ends[1])));
    }
    EXPECT_GT(process, 0);
    ::close(ends[1]);
    ::close(lifeEnds[1]);
    reports = ends[0];
    life = lifeEnds[0];
}

ChildProcess::~ChildProcess()
{
    kill();
    ::close(life);
    ::close(reports);
}

bool ChildProcess::hasReported() const
{
    char report = 0;
    return isReadable(reports, std::chrono::seconds(10)) && ::read(reports, &report, 1) == 1;
}

std::optional<int> ChildProcess::exitStatus(std::chrono::milliseconds patience)
{
    int status = 0;
    if (isReaped || !isReadable(life, patience) || ::waitpid(process, &status, 0) != process)
        return {};
    isReaped = true;
    return WIFEXITED(status) ? std::optional(WEXITSTATUS(status)) : std::nullopt;
}

void ChildProcess::kill()
{
    if (isReaped)
        return;
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    isReaped = true;
}

void ChildProcess::stop()
{
    int status = 0;
    ::kill(process, SIGSTOP);
    EXPECT_EQ(::waitpid(process, &status, WUNTRACED), process);
    EXPECT_TRUE(WIFSTOPPED(status));
}

void ChildProcess::resume()
{
    ::kill(process, SIGCONT);
}

} // namespace sablequill
