// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>

#include <filesystem>
#include <span>

namespace sablequill {

/// Replaces a file so that whoever reads it, also after a crash, finds the old bytes or the new
/// ones.
///
/// The new bytes go to a temporary file in the same folder (".notes.json.XXXXXX.tmp", 0600), are
/// synced to the disk and take the file's place in one step. A symbolic link stays, and what it
/// leads to is replaced. Anything but a regular file is left alone.
class AtomicFile {
public:
    explicit AtomicFile(std::filesystem::path file);

    /// Makes the chunks, one after the other, the file's bytes. On failure the file is as it was
    /// and there is no temporary file.
    bool replace(std::span<const QByteArrayView> chunks) const;

    /// Removes the temporary files of processes that ended before they were done, never one that is
    /// being written. Errors are dropped.
    void removeStaleTemporaries() const;

private:
    std::filesystem::path file;
};

} // namespace sablequill
