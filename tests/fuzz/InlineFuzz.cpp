// SPDX-License-Identifier: MIT
#include "Fuzz.h"

#include "InlineMarkdown.h"

using namespace sablequill;

// Whatever is well-formed text is read, into runs that make it up. None of them is empty or could
// be one with the run before.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto string = InlineMarkdown::read(QString::fromUtf8(bytes(data, size)));
    require(string.has_value());
    const RunAttributes* before = nullptr;
    qsizetype end = 0;
    for (const Run& run : string->runs) {
        require(run.start == end && run.length > 0);
        require(!before || *before != run.attributes);
        before = &run.attributes;
        end += run.length;
    }
    require(end == string->text.size());
    return 0;
}
