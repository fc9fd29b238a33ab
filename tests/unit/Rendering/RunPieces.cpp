// SPDX-License-Identifier: MIT
#include "RunPieces.h"

#include <gtest/gtest.h>

namespace sablequill::test {

Pieces pieces(const AttributedString& string)
{
    Pieces all;
    qsizetype end = 0;
    for (const Run& run : string.runs) {
        EXPECT_EQ(run.start, end);
        end += run.length;
        all.push_back({string.text.sliced(run.start, run.length), run.attributes});
    }
    EXPECT_EQ(string.text.size(), end);
    return all;
}

AttributedString joined(const Pieces& pieces)
{
    AttributedString string;
    for (const auto& [text, attributes] : pieces)
        string.append(text, attributes);
    return string;
}

} // namespace sablequill::test
