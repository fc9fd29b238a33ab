// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace sablequill {

/// How a text is set, in the application's default font family.
struct TextStyle {
    double size = 13; ///< points
    QFont::Weight weight = QFont::Normal;

    constexpr TextStyle weighted(QFont::Weight other) const { return {size, other}; }

    bool operator==(const TextStyle&) const = default;
};

namespace TextStyles {
inline constexpr TextStyle largeTitle{26};
inline constexpr TextStyle title{22};
inline constexpr TextStyle title2{17};
inline constexpr TextStyle title3{15};
inline constexpr TextStyle headline{13, QFont::Bold};
inline constexpr TextStyle body{13};
inline constexpr TextStyle callout{12};
inline constexpr TextStyle subheadline{11};
inline constexpr TextStyle footnote{10};
inline constexpr TextStyle caption{10};
inline constexpr TextStyle caption2{10, QFont::Medium};
} // namespace TextStyles

/// Points; a letter of that size fills a screen.
inline constexpr double largestTextSize = 2000;

/// Of a font of that many points: at least 1, at most `largestTextSize`.
int pixelSize(double points);

QFont font(TextStyle style);
/// The system's fixed-pitch family.
QFont monospacedFont(TextStyle style);

} // namespace sablequill
