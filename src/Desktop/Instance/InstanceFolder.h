// SPDX-License-Identifier: MIT
#pragma once

#include "FileDescriptor.h"

#include <filesystem>
#include <vector>

namespace sablequill {

/// The folder in which the starts of one user on one display meet, and the lock in it.
///
/// It is created where it is missing, closed to everybody else (0700), and not used unless it
/// belongs to this user. The lock is the kernel's (flock): it ends with the process that holds it,
/// however that ends.
class InstanceFolder {
public:
    enum class Lock {
        taken,
        heldByAnother,
        /// The folder cannot be used or knows no locks.
        impossible,
    };

    /// The folders that may serve, the most suitable first: one in $XDG_RUNTIME_DIR, if that is
    /// this user's; one in $XDG_STATE_HOME or ~/.local/state, which several machines may share.
    /// Both are named after the display, whichever of its screens DISPLAY says.
    static std::vector<std::filesystem::path> candidates();

    explicit InstanceFolder(const std::filesystem::path& folder);

    /// Does not wait. A lock that was taken is held as long as this object lives.
    Lock tryLock() const;

    /// For paths through it; -1 for a folder that cannot be used.
    int descriptor() const { return folder.get(); }

private:
    FileDescriptor folder;
    FileDescriptor lockFile;
};

} // namespace sablequill
