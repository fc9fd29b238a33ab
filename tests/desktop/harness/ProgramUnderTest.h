// SPDX-License-Identifier: MIT
#pragma once

#include "DesktopSession.h"

#include <csignal>
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
    std::optional<int> terminate(int signal = SIGTERM);
    /// The end that the user asked for in the program, or that something else than a signal of ours
    /// brings: the wait status, or nothing when it does not end.
    std::optional<int> waitForEnd();
    /// Takes its power away, as a crash does.
    void kill();
    /// Stops it as a heavily loaded machine does, and lets it go on.
    void pause() { process.sendSignal(SIGSTOP); }
    void resume() { process.sendSignal(SIGCONT); }
    /// Waits for a line on stderr that contains the text, and takes it as expected.
    bool printsLineWith(const std::string& text);
    /// Takes lines on stderr that contain the text as expected, should they come.
    void mayPrintLinesWith(const std::string& text) { expected.push_back(text); }

private:
    void failOnUnexpectedLines() const;

    std::filesystem::path log;
    ChildProcess process;
    std::vector<std::string> expected;
    bool mayEnd = false;
};

} // namespace sablequill
