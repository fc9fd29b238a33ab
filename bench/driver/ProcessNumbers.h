// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>

#include <sys/types.h>

namespace sablequill {

/// What the system has counted for a process.
struct Activity {
    double processorMilliseconds = 0;
    /// By thread: how often it went to sleep by itself, and so how often it was woken.
    std::map<std::string, std::int64_t> wakeUps;
};

/// How often threads were woken between the two; at least once for each that came or went.
std::int64_t wakeUpsBetween(const Activity& before, const Activity& after);

// Throw std::runtime_error when there is no such process.

Activity activityOf(pid_t process);
/// Its private memory and, of what it shares, its own share ("Pss"), in MB of 1,000,000 bytes. This
/// process does not count among those that share.
double ownMemory(pid_t process);
/// What it has written to of its memory ("Anonymous"), in the same unit. No other process has a
/// part in this number.
double writtenMemory(pid_t process);
int openFiles(pid_t process);

} // namespace sablequill
