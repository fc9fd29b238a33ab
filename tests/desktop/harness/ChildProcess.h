// SPDX-License-Identifier: MIT
#pragma once

#include "Wait.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace sablequill {

/// The whole environment of a child; nothing is inherited.
using Environment = std::map<std::string, std::string>;

struct ChildProcessDescription {
    /// The program, found through PATH, and its arguments.
    std::vector<std::string> command;
    Environment environment;
    /// Receives standard output and standard error.
    std::filesystem::path outputFile;
};

/// A program in a process group of its own that never outlives the test process, however that ends.
class ChildProcess {
public:
    /// Throws std::runtime_error when no process can be made. A program that cannot be executed
    /// exits with 127.
    explicit ChildProcess(ChildProcessDescription description);
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    /// Kills the process and its group, and reaps it.
    ~ChildProcess();

    pid_t pid() const { return processId; }
    bool isRunning();
    void sendSignal(int signal);
    /// The wait status as waitpid gives it, or nothing when the process still runs at the deadline.
    std::optional<int> waitForExit(Milliseconds deadline = defaultDeadline);
    /// What was printed so far.
    std::string output() const;

private:
    void reap(int options);

    ChildProcessDescription description;
    pid_t processId = -1;
    std::optional<int> exitStatus;
};

/// Runs a command to its end and returns its output; throws std::runtime_error when it fails or
/// hangs.
std::string runCommand(const ChildProcessDescription& description);

} // namespace sablequill
