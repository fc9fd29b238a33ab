// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace sablequill::InlineMarkdown {

/// Where `<?`, `<![CDATA[` and `<!` with a capital letter stand without the end that cmark-gfm
/// looks for, in ascending order. Its scanner runs to the end of the text from each of them. Mail
/// addresses in angle brackets that begin in that way are not among them.
std::vector<std::size_t> unclosedHtmlOpeners(std::string_view text);

} // namespace sablequill::InlineMarkdown
