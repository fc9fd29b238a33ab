// SPDX-License-Identifier: MIT
#pragma once

#include "AttributedString.h"

#include <string_view>

namespace sablequill::InlineMarkdown {

/// Appends the runs of the UTF-8 text as cmark-gfm reads it, all of it as one paragraph.
void appendRuns(std::string_view text, AttributedString& out);

/// Appends UTF-8 text; unlike QString::fromUtf8, with the U+FEFF at its start.
void appendPlain(std::string_view text, const RunAttributes& attributes, AttributedString& out);

} // namespace sablequill::InlineMarkdown
