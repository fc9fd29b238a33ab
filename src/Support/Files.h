// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>

/// What the program does with files and folders. No function throws or prints; each reports
/// failure.
namespace sablequill::Files {

/// Whether there is something at the path, symbolic links followed, or may be: false only when it
/// is certain that there is nothing.
bool exists(const std::filesystem::path& path);

/// So many zeros lie behind the bytes that `read` returns: a parser may look past their end.
inline constexpr qsizetype spareBytes = 64;

/// Bytes; what is larger is not read, since there may be no memory for it.
inline constexpr std::int64_t largestFile = std::int64_t{1} << 30;

/// All bytes of a regular file; nothing on any error, for a file larger than `largestFile`, and for
/// anything that is not a regular file.
std::optional<QByteArray> read(const std::filesystem::path& file);

/// Writes the chunks one after the other; false when not all of them arrived.
bool write(int fd, std::span<const QByteArrayView> chunks);

/// Creates the folder and its missing parents, for the user alone (0700). Existing ones stay as
/// they are. Errors are dropped.
void createPrivateFolder(const std::filesystem::path& folder);

/// Where the path leads when its last part is a symbolic link, which may lead to nothing yet;
/// nothing for a loop.
std::optional<std::filesystem::path> behindLinks(std::filesystem::path path);

} // namespace sablequill::Files
