// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <deque>
#include <optional>

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

/// A part of a text, in UTF-16 units.
struct Run {
    qsizetype start = 0;
    qsizetype length = 0;
    RunAttributes attributes = {};

    bool operator==(const Run&) const = default;
};

/// A long note has tens of thousands, which a vector would move each time it grows.
using Runs = std::deque<Run>;

/// Adds a run that begins where the last one ends. Lengthens that one when the attributes are the
/// same; an empty run changes nothing.
void appendRun(Runs& runs, const Run& run);

/// A text and the runs that it is made of, in reading order. What was appended has no empty run and
/// no two neighbors with equal attributes.
struct AttributedString {
    QString text;
    Runs runs;

    void append(QStringView part, const RunAttributes& attributes = {});
    void append(const AttributedString& other);
    QStringView textOf(const Run& run) const;

    bool operator==(const AttributedString&) const = default;
};

} // namespace sablequill
