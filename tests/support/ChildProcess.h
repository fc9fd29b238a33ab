// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include <sys/types.h>

namespace sablequill {

/// A copy of the test's process that does one thing. Killed when it is still there at the end.
class ChildProcess {
public:
    /// What the child uses to tell its parent something.
    class Report {
    public:
        explicit Report(int fd);
        /// To be sent once.
        void send() const;
        /// Sends and waits to be killed.
        [[noreturn]] void sendAndStay() const;

    private:
        const int fd;
    };

    /// Runs the work in a child, whose exit status is what the work returns.
    explicit ChildProcess(const std::function<int(const Report&)>& work);
    ~ChildProcess();

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// Waits for the report; false when the child ends without one, or takes seconds.
    bool hasReported() const;

    /// Nothing when it was ended by a signal, or takes longer.
    std::optional<int> exitStatus(std::chrono::milliseconds patience = std::chrono::seconds(10));

    /// SIGKILL, and waits for the end.
    void kill();
    /// SIGSTOP, and waits until the child stands still.
    void stop();
    /// SIGCONT.
    void resume();

private:
    pid_t process = -1;
    int reports = -1;
    /// Ends with the child, which alone holds its other end.
    int life = -1;
    bool isReaped = false;
};

} // namespace sablequill
