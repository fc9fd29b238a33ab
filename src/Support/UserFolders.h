// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <optional>

/// Where a user's files are: freedesktop.org's base directories.
namespace sablequill::UserFolders {

/// The folder that an environment variable names. Nothing for one that is unset, empty or relative:
/// such a folder would move with the working directory.
std::optional<std::filesystem::path> in(const char* variable);

/// The folder that the variable names, or else the one in the user's home folder; nothing when
/// there is no home folder either. Neither needs to exist.
std::optional<std::filesystem::path> in(
    const char* variable, const std::filesystem::path& belowHome);

} // namespace sablequill::UserFolders
