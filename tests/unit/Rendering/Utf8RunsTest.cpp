// SPDX-License-Identifier: MIT
#include "Utf8Runs.h"

#include "RunPieces.h"

#include <gtest/gtest.h>

#include <utility>

namespace sablequill::InlineMarkdown {
namespace {

using namespace Qt::StringLiterals;
using test::Pieces;

const RunAttributes code{{}, {}, InlinePresentationIntent::code};

Pieces decoded(const Pieces& written)
{
    Utf8Runs runs;
    for (const auto& [text, attributes] : written) {
        runs.text += text.toStdString();
        runs.endRun(attributes);
    }
    return test::pieces(std::move(runs).decoded());
}

TEST(Utf8Runs, decoded_nothingWritten_isEmpty)
{
    EXPECT_EQ(decoded({}), Pieces{});
    EXPECT_EQ(decoded({{QString()}, {QString(), code}}), Pieces{});
}

TEST(Utf8Runs, decoded_charactersOfEachLength_keepTheirRuns)
{
    const Pieces written{{u"a"_s}, {u"\u00e9\u00df"_s, code}, {u"\u20ac"_s},
        {u"\U0001F600b\U0001F600"_s, code}, {u"c"_s}};
    EXPECT_EQ(decoded(written), written);
}

TEST(Utf8Runs, decoded_byteOrderMarks_stay)
{
    const Pieces written{{u"\uFEFFa"_s}, {u"\uFEFF"_s, code}};
    EXPECT_EQ(decoded(written), written);
}

TEST(Utf8Runs, endRun_equalAttributesOrNothingWritten_lengthensTheRun)
{
    EXPECT_EQ(decoded({{u"a"_s, code}, {QString()}, {u"b"_s, code}}), (Pieces{{u"ab"_s, code}}));
}

TEST(Utf8Runs, decoded_textBehindTheLastRun_isLeftOut)
{
    Utf8Runs runs;
    runs.text = "a";
    runs.endRun({});
    runs.text += "b";
    EXPECT_EQ(test::pieces(std::move(runs).decoded()), (Pieces{{u"a"_s}}));
}

} // namespace
} // namespace sablequill::InlineMarkdown
