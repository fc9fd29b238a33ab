// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"

#include <QString>

namespace sablequill::MarkdownParser {

/// A note's text as styled runs: inline Markdown only, line breaks and runs of spaces kept as
/// typed, one font size throughout, bold for strong emphasis, no colors. Text that the inline
/// reader refuses goes through a small parser that knows headings, bullets and "**bold**".
/// `fontSize` in points. Main thread only, as InlineMarkdown::read.
AttributedString attributedString(const QString& text, double fontSize);

} // namespace sablequill::MarkdownParser
