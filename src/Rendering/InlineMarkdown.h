// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"

#include <QString>

#include <optional>

namespace sablequill::InlineMarkdown {

/// Reads inline Markdown (CommonMark 0.29 with GitHub's strikethrough): emphasis, strong emphasis,
/// code spans, links, strikethrough, raw HTML. Block syntax stays literal text, and so does a
/// reference definition; line breaks and white space stay as typed. An image is its alternative
/// text. Runs carry intents and link destinations, nothing else.
///
/// Nothing only for text with an unpaired surrogate. NUL is read as U+FFFD.
///
/// The time is bounded by the length. To keep that bound, text that would cost more than its share
/// is read part by part: between blank lines, then line by line, so that no span reaches across
/// these; a line that is still too dear stays literal.
///
/// Main thread only: cmark-gfm keeps tables for all its parsers.
std::optional<AttributedString> read(const QString& text);

} // namespace sablequill::InlineMarkdown
