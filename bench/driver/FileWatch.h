// SPDX-License-Identifier: MIT
#pragma once

#include "Statistics.h"

#include <filesystem>
#include <string>

namespace sablequill {

/// Tells when a file of a folder was replaced.
class FileWatch {
public:
    explicit FileWatch(const std::filesystem::path& file);
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;
    ~FileWatch();

    /// Forgets the replacements so far.
    void reset() const;
    /// When the file next was in place; throws std::runtime_error when it never was.
    Clock::time_point waitForReplacement() const;

private:
    bool readEvents() const;

    std::string name;
    int descriptor;
};

} // namespace sablequill
