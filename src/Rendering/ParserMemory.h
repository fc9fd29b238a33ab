// SPDX-License-Identifier: MIT
#pragma once

#include <cmark-gfm.h>

namespace sablequill::InlineMarkdown {

/// The memory of one parser and its tree, given back as a whole: they are made of thousands of
/// small pieces, each of which would have to be found and freed.
///
/// The parser's own arena would do too, but takes a sixth more instructions for a text that is read
/// in small parts: it asks for blocks anew for every part, and clears whole blocks.
///
/// There is one at a time, and the main thread has it: the parser hands its functions no context.
class ParserMemory {
public:
    ParserMemory() = default;
    /// What was allocated is gone.
    ~ParserMemory();

    ParserMemory(const ParserMemory&) = delete;
    ParserMemory& operator=(const ParserMemory&) = delete;

    cmark_mem* functions() const;
};

} // namespace sablequill::InlineMarkdown
