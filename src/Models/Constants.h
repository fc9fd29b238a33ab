// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace sablequill::Constants {

inline const QString appName = QStringLiteral("Sablequill");
/// Also the base name of the desktop entry and of the autostart entry.
inline const QString bundleIdentifier = QStringLiteral("io.github.sablequill.Sablequill");

// Sizes in points.
inline constexpr double defaultOverlayWidth = 420.0;
inline constexpr double defaultOverlayHeight = 280.0;
inline constexpr double minOverlayWidth = 280.0;
inline constexpr double minOverlayHeight = 160.0;

/// Seconds.
inline constexpr double animationDuration = 0.22;

} // namespace sablequill::Constants
