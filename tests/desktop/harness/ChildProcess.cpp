// SPDX-License-Identifier: MIT
#include "ChildProcess.h"

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace sablequill {

namespace {

/// The null-terminated array that exec takes; the strings must outlive it.
std::vector<char*> pointersTo(std::vector<std::string>& strings)
{
    std::vector<char*> pointers;
    for (auto& string : strings)
        pointers.push_back(string.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> assignments(const Environment& environment)
{
    std::vector<std::string> result;
    for (const auto& [name, value] : environment)
        result.push_back(name + '=' + value);
    return result;
}

void redirectOutput(const char* path)
{
    const int file = open(path, O_WRONLY | O_CREAT | O_APPEND, 0600);
    const int null = open("/dev/null", O_RDONLY);
    if (file < 0 || null < 0)
        _exit(126);
    dup2(null, STDIN_FILENO);
    dup2(file, STDOUT_FILENO);
    dup2(file, STDERR_FILENO);
    close(file);
    close(null);
}

/// Runs in the child. The parent may have died before the death signal was asked for.
void prepareChild(pid_t parent, const char* outputFile)
{
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (getppid() != parent)
        _exit(126);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    redirectOutput(outputFile);
}

} // namespace

ChildProcess::ChildProcess(ChildProcessDescription childDescription)
    : description(std::move(childDescription))
{
    auto variables = assignments(description.environment);
    auto arguments = pointersTo(description.command);
    auto environment = pointersTo(variables);
    const pid_t parent = getpid();
    processId = fork();
    if (processId < 0)
        throw std::runtime_error("cannot fork");
    if (processId == 0) {
        prepareChild(parent, description.outputFile.c_str());
        execvpe(arguments.front(), arguments.data(), environment.data());
        _exit(127);
    }
    setpgid(processId, processId);
}

ChildProcess::~ChildProcess()
{
    kill(-processId, SIGKILL);
    reap(0);
}

void ChildProcess::reap(int options)
{
    int status = 0;
    if (!exitStatus && waitpid(processId, &status, options) == processId)
        exitStatus = status;
}

bool ChildProcess::isRunning()
{
    reap(WNOHANG);
    return !exitStatus;
}

void ChildProcess::sendSignal(int signal)
{
    if (isRunning())
        kill(processId, signal);
}

std::optional<int> ChildProcess::waitForExit(Milliseconds deadline)
{
    waitUntil([this] { return !isRunning(); }, deadline);
    return exitStatus;
}

std::string ChildProcess::output() const
{
    std::ifstream file(description.outputFile);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string runCommand(const ChildProcessDescription& description)
{
    ChildProcess process(description);
    const auto status = process.waitForExit();
    if (status != 0)
        throw std::runtime_error(description.command.front() + " failed: " + process.output());
    return process.output();
}

} // namespace sablequill
