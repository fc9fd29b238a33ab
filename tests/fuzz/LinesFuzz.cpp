// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "MarkdownParserPrivate.h"

using namespace sablequill;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const double fontSize = 17;
    const QString text = QString::fromUtf8(bytes(data, size));
    const AttributedString string = MarkdownParser::manualParse(text, fontSize);
    for (const Run& run : string.runs)
        require(run.length > 0);
    // Markers go, and nothing is added but five characters for the two of a bullet.
    require(string.text.size() <= 3 * text.size());
    return 0;
}
