// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <climits>

namespace sablequill {

/// The system calls that can be made to fail.
enum class FaultyCall {
    none,
    open, ///< of a file that is there
    create, ///< open with O_CREAT, and mkostemps
    read,
    write,
    sync,
    rename,
    close,
    lock,
    link,
    chmod,
    unlink,
    mkdir,
};

/// What the library beside this header lets fail: calls about files below one folder, and no other.
/// Another process may read and change it at any time, so it points to nothing.
struct FaultPlan {
    /// In place of an error: a write writes a part, and says so.
    static constexpr int shortWrite = -1;
    static constexpr int always = INT_MAX;
    /// Names the file that holds the plan of a process with the library preloaded.
    static constexpr const char* variable = "SABLEQUILL_FAULT_PLAN";

    std::atomic<FaultyCall> call{FaultyCall::none};
    std::atomic<int> error{0};
    std::atomic<int> passing{0}; ///< how many go through before the first one that fails
    std::atomic<int> failing{0}; ///< how many fail then
    std::atomic<int> failed{0}; ///< how many have failed so far
    std::array<char, 1024> folder{}; ///< an absolute path without links
};

} // namespace sablequill

/// The plan of this process: the one in the file that the variable names, or else one of its own.
extern "C" sablequill::FaultPlan& sablequillFaultPlan();
