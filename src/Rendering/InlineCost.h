// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace sablequill::InlineMarkdown {

/// At most so many steps of cmark-gfm 0.29.0.gfm.6's searches that are not linear: from each link
/// back over all delimiter runs and image openers, and from each closing delimiter run back over
/// all delimiter runs. In steps; a huge number for text that its 32-bit sizes should not meet.
std::uint64_t quadraticCost(std::string_view text);

/// Pieces that make up the text. Each blank line, with the line break before it, ends a piece.
std::vector<std::string_view> splitBehindBlankLines(std::string_view text);
/// Pieces that make up the text, each a line with its line break (LF, CR or CR LF).
std::vector<std::string_view> splitBehindLineBreaks(std::string_view text);

} // namespace sablequill::InlineMarkdown
