// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>

namespace sablequill {

/// Keeps the bytes of a file that could not be read beside it, as "notes.unreadable.json", or
/// "notes.unreadable.2.json" and so on when there is one already; 0600. The file itself stays.
///
/// True when the bytes are safe under another name, also when they were before, and when there is
/// no file.
bool keepUnreadableFile(const std::filesystem::path& file);

} // namespace sablequill
