// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <filesystem>

namespace sablequill {

/// The desktop entry that starts the program at login (freedesktop Desktop Entry and Autostart).
///
/// It names the program by its path. One that no entry can hold (relative, not in UTF-8, or with
/// control characters) is replaced by the command that an installed program has on the PATH.
QByteArray autostartEntry(const std::filesystem::path& program);

} // namespace sablequill
