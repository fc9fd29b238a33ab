// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringView>

#include <optional>
#include <string_view>
#include <vector>

/// What a user perceives as characters, white space and lines. Views point into the argument's
/// text.
namespace sablequill::Text {

/// U+000A to U+000D, U+0085, U+2028, U+2029.
bool isNewline(QChar character);
/// Tab and the space separators (general category Zs).
bool isWhitespace(QChar character);

/// At most `count` extended grapheme clusters (UAX #29, root locale) from the start of the text.
QStringView graphemePrefix(QStringView text, int count);

/// Without white space and newlines at both ends.
QStringView trimmedWhitespaceAndNewlines(QStringView text);
/// Without white space at both ends; newlines stay.
QStringView trimmedWhitespace(QStringView text);

/// Reads a text line by line. Every newline character ends a line, so that CR LF has an empty line
/// in it, and what follows the last one is a line too, also when it is empty.
class LineReader {
public:
    explicit LineReader(QStringView text)
        : rest(text)
    {
    }

    /// Without its newline; nothing after the last line.
    std::optional<QStringView> next();

private:
    std::optional<QStringView> rest;
};

/// All lines as LineReader gives them: at least one.
std::vector<QStringView> splitAtNewlines(QStringView text);

/// Unlike QString::fromUtf8, with the U+FEFF at its start.
QString fromUtf8(std::string_view utf8);

/// The text with every unpaired surrogate replaced by U+FFFD.
QString wellFormed(const QString& text);

} // namespace sablequill::Text
