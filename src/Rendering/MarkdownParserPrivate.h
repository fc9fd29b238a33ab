// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"

#include <QString>
#include <QStringView>

/// The steps of MarkdownParser::attributedString. Sizes in points.
namespace sablequill::MarkdownParser {

/// Gives every run the system font of the base size: bold where it is strongly emphasized, regular
/// elsewhere. Intents, links and colors stay.
void applyTypography(AttributedString& string, double baseFontSize);

/// The fallback, which takes any text. Line by line, where every newline character ends a line and
/// each later line begins with an unstyled "\n": "# " and "## " headings, "- " and "* " bullets;
/// anything else, and what follows a bullet, is read by parseInline. White space around headings
/// and bullets goes, around other lines it stays.
AttributedString manualParse(const QString& text, double fontSize);

/// Knows "**bold**" alone, not nested. "****" is an empty bold span, of which nothing is seen; a
/// "**" without a second one is literal text.
AttributedString parseInline(QStringView text, double fontSize);

} // namespace sablequill::MarkdownParser
