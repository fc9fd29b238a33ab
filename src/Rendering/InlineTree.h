// SPDX-License-Identifier: MIT
#pragma once

#include "Utf8Runs.h"

#include <string_view>

namespace sablequill::InlineMarkdown {

/// Appends the runs of the UTF-8 text as cmark-gfm reads it, all of it as one paragraph.
void appendRuns(std::string_view text, Utf8Runs& out);

} // namespace sablequill::InlineMarkdown
