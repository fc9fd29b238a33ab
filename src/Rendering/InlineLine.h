// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sablequill::InlineMarkdown {

/// A text written as one line between two spaces that are not ASCII, so that a parser of Markdown
/// blocks takes all of it for one paragraph and trims nothing. A line feed ends the line. All text
/// is UTF-8.
///
/// In the line, form feeds are ours alone: after a tab they are a line break whose kind is their
/// number, and a pair elsewhere keeps two characters apart and means nothing.
class InlineLine {
public:
    explicit InlineLine(std::string_view text);

    const std::string& bytes() const { return line; }

    /// Bytes of the space at each end of the text.
    static std::size_t guardSize();

    /// Appends the typed form of a text node. A line break behind a backslash takes the backslash.
    void appendText(std::string_view literal, std::string& out) const;
    /// Appends the typed form of any other part of the line, and of a link destination.
    void appendVerbatim(std::string_view literal, std::string& out) const;

private:
    enum class HardBreak { dropsBackslash, keepsBackslash };
    void append(std::string_view literal, HardBreak hardBreak, std::string& out) const;

    /// What a form feed of the text is in the line; empty when the text has none.
    std::string_view formFeed;
    std::string line;
};

} // namespace sablequill::InlineMarkdown
