// SPDX-License-Identifier: MIT
#pragma once

#include "DesktopSession.h"

#include <cstdint>

namespace sablequill {

/// What the system has counted for a process since its start.
struct ProcessCounters {
    std::int64_t residentKiB = 0;
    std::int64_t processorMilliseconds = 0;
    /// How often it went to sleep by itself, and so how often it was woken.
    std::int64_t voluntarySwitches = 0;
};

/// Throws std::runtime_error when there is no such process.
ProcessCounters countersOf(pid_t process);

/// A program, run by one user in one session. A line on stderr that was not expected fails the
/// test, and so does an end that nobody asked for.
class ProgramUnderTest {
public:
    /// Session and user outlive the program.
    ProgramUnderTest(const std::vector<std::string>& command, const DesktopSession& session,
        const PrivateHome& user);
    /// In a session of another kind; its environment is the user's as well.
    ProgramUnderTest(const std::vector<std::string>& command, const Environment& environment,
        const PrivateHome& user);
    /// Kills the program when it still runs.
    ~ProgramUnderTest();

    pid_t pid() const { return process.pid(); }
    bool isRunning() { return process.isRunning(); }
    /// Asks it to end as a session does, and returns the wait status as waitpid gives it, or
    /// nothing when it does not end.
    std::optional<int> terminate();
    /// For a program that was told to end by its own means: the wait status, or nothing when it
    /// does not end.
    std::optional<int> waitForEnd();
    /// Takes its power away, as a crash does.
    void kill();
    /// Waits for a line on stderr that contains the text, and takes it as expected.
    bool printsLineWith(const std::string& text);

private:
    void failOnUnexpectedLines() const;

    std::filesystem::path log;
    ChildProcess process;
    std::vector<std::string> expected;
    bool mayEnd = false;
};

} // namespace sablequill
