// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace sablequill {

/// What inline Markdown says of a run. Bits as the presentation intents are numbered.
namespace InlinePresentationIntent {
inline constexpr std::uint32_t emphasized = 1;
inline constexpr std::uint32_t stronglyEmphasized = 2;
inline constexpr std::uint32_t code = 4;
inline constexpr std::uint32_t strikethrough = 32;
inline constexpr std::uint32_t inlineHTML = 256;
} // namespace InlinePresentationIntent

enum class FontWeight { regular = 400, semibold = 600, bold = 700 };

/// The system font.
struct RunFont {
    double size = 0; ///< points
    FontWeight weight = FontWeight::regular;

    bool operator==(const RunFont&) const = default;
};

enum class SemanticColor { primary, secondary };

struct RunAttributes {
    std::optional<RunFont> font = {};
    std::optional<SemanticColor> foregroundColor = {};
    /// A union of InlinePresentationIntent bits; 0 is no intent.
    std::uint32_t inlinePresentationIntent = 0;
    /// Destination of a link, as written in the text; empty when the run is none.
    QString link = {};

    bool operator==(const RunAttributes&) const = default;
};

struct Run {
    QString text;
    RunAttributes attributes = {};

    bool operator==(const Run&) const = default;
};

/// Text in runs of equal attributes, in reading order. What `append` built has no empty run and no
/// two neighbors with equal attributes.
struct AttributedString {
    std::vector<Run> runs;

    /// Lengthens the last run when its attributes are the same; empty text changes nothing.
    void append(QString text, const RunAttributes& attributes = {});
    void append(const AttributedString& other);
    QString text() const;

    bool operator==(const AttributedString&) const = default;
};

} // namespace sablequill
