// SPDX-License-Identifier: MIT
#include "InlineMarkdown.h"

#include "RunNotation.h"
#include "RunPieces.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using namespace std::string_literals;

struct ReadingCase {
    const char* name;
    QString text;
    std::string runs; ///< as test::notation writes them
};

constexpr auto rowName = [](const auto& info) { return std::string(info.param.name); };

std::ostream& operator<<(std::ostream& out, const ReadingCase& row)
{
    return out << row.name;
}

std::string reading(const QString& text)
{
    const auto string = InlineMarkdown::read(text);
    return string ? test::notation(*string) : "refused";
}

class InlineMarkdownReading : public testing::TestWithParam<ReadingCase> { };

TEST_P(InlineMarkdownReading, read_row_givesTheseRuns)
{
    EXPECT_EQ(reading(GetParam().text), GetParam().runs);
}

INSTANTIATE_TEST_SUITE_P(Spans, InlineMarkdownReading,
    testing::Values(ReadingCase{"empty", u""_s, ""}, ReadingCase{"plain", u"a b"_s, "[]a b"},
        ReadingCase{"strong", u"a **b** c"_s, "[]a [strong]b[] c"},
        ReadingCase{"strongUnderscores", u"__b__"_s, "[strong]b"},
        ReadingCase{"emphasis", u"*b* _c_"_s, "[emphasis]b[] [emphasis]c"},
        ReadingCase{"emphasisInsideAWord", u"a*b*c a_b_c"_s, "[]a[emphasis]b[]c a_b_c"},
        ReadingCase{"both", u"***b***"_s, "[strong emphasis]b"},
        ReadingCase{"nested", u"**a *b* c**"_s, "[strong]a [strong emphasis]b[strong] c"},
        ReadingCase{"strongInStrong", u"**a **b** c**"_s, "[strong]a b c"},
        ReadingCase{"multipleOfThree", u"*a**b*c"_s, "[emphasis]a**b[]c"},
        ReadingCase{"spacedStars", u"* a * b **"_s, "[]* a * b **"},
        ReadingCase{"unclosed", u"**a *b"_s, "[]**a *b"},
        ReadingCase{"singleTilde", u"~x~"_s, "[strike]x"},
        ReadingCase{"doubleTilde", u"~~x~~"_s, "[strike]x"},
        ReadingCase{"threeTildes", u"~~~x~~~ ~~~"_s, "[]~~~x~~~ ~~~"},
        ReadingCase{"tildesOfTwoLengths", u"~~x~"_s, "[]~~x~"},
        ReadingCase{"struckStrong", u"**~~x~~**"_s, "[strong strike]x"},
        ReadingCase{"strongStruck", u"~~**x**~~"_s, "[strong strike]x"},
        ReadingCase{"allAtOnce", u"***~~[`a`](b)~~***"_s, "[strong emphasis code strike link=b]a"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Code, InlineMarkdownReading,
    testing::Values(ReadingCase{"code", u"a `b` c"_s, "[]a [code]b[] c"},
        ReadingCase{
            "marksInside", u"`**b** [c](d) <e> \\* &amp;`"_s, "[code]**b** [c](d) <e> \\* &amp;"},
        ReadingCase{"backtickInside", u"`` a`b ``"_s, "[code]a`b"},
        ReadingCase{"oneSpaceGoes", u"`  b  `"_s, "[code] b "},
        ReadingCase{"spaceAtOneEnd", u"` b`"_s, "[code] b"},
        ReadingCase{"onlySpaces", u"`  `"_s, "[code]  "},
        ReadingCase{"innerSpaces", u"`a   b`"_s, "[code]a   b"},
        ReadingCase{"tabsStay", u"`\tb\t`"_s, "[code]\tb\t"},
        ReadingCase{"pairOfThree", u"```a```"_s, "[code]a"},
        ReadingCase{"fence", u"```\na\n```"_s, "[code]\na\n"},
        ReadingCase{"unclosed", u"``a`"_s, "[]``a`"},
        ReadingCase{"escapedBacktick", u"\\`a`"_s, "[]`a`"},
        ReadingCase{"backslashInside", u"`a\\`b"_s, "[code]a\\[]b"},
        ReadingCase{"afterNonAscii", u"é😀 `ü` x"_s, "[]é😀 [code]ü[] x"},
        ReadingCase{"inStrong", u"**a `b`**"_s, "[strong]a [strong code]b"},
        ReadingCase{"inALink", u"[`b`](c)"_s, "[code link=c]b"},
        ReadingCase{"afterDecodedReference", u"&amp;\\* `b`"_s, "[]&* [code]b"},
        ReadingCase{"afterUnclosedOpener", u"<?\n](<\n `<?`"_s, "[]<?\n](<\n [code]<?"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Breaks, InlineMarkdownReading,
    testing::Values(ReadingCase{"lineBreaks", u"a\nb\rc\r\nd"_s, "[]a\nb\rc\r\nd"},
        ReadingCase{"atTheEnds", u"\n\na\n\n"_s, "[]\n\na\n\n"},
        ReadingCase{"onlyBreaks", u"\n"_s, "[]\n"},
        ReadingCase{"emphasisOverABreak", u"*a\nb*"_s, "[emphasis]a\nb"},
        ReadingCase{"emphasisOverABlankLine", u"**a\n\n \t\nb**"_s, "[strong]a\n\n \t\nb"},
        ReadingCase{"strikethroughOverABreak", u"~~a\nb~~"_s, "[strike]a\nb"},
        ReadingCase{"codeOverABreak", u"`a\nb\r\nc`"_s, "[code]a\nb\r\nc"},
        ReadingCase{"linkTextOverABreak", u"[a\nb](c)"_s, "[link=c]a\nb"},
        ReadingCase{"breakBeforeTheTitle", u"[a](b\n\"c\nd\")"_s, "[link=b]a"},
        ReadingCase{"breakBeforeTheDestination", u"[a](\n b\n)"_s, "[link=b]a"},
        ReadingCase{"breakEndsADestination", u"[a](b\nc)"_s, "[][a](b\nc)"},
        ReadingCase{"breakInAngles", u"[a](<b\nc>)"_s, "[][a]([html]<b\nc>[])"},
        ReadingCase{"breakBeforeAngles", u"[a](\n<b c>\n)"_s, "[link=b c]a"},
        ReadingCase{"tagOverABreak", u"<a\nb=\"c\nd\">"_s, "[html]<a\nb=\"c\nd\">"},
        ReadingCase{"starBesideABreak", u"*\na*"_s, "[]*\na*"},
        ReadingCase{"starAtTheEnds", u"*a* *"_s, "[emphasis]a[] *"},
        ReadingCase{"trailingSpacesStay", u"a  \nb   \n"_s, "[]a  \nb   \n"},
        ReadingCase{"leadingSpacesStay", u"  a\n\t b"_s, "[]  a\n\t b"},
        ReadingCase{"codeIndentStays", u"    a\n\tb"_s, "[]    a\n\tb"},
        ReadingCase{"backslashGoes", u"a\\\nb"_s, "[]a\nb"},
        ReadingCase{"backslashGoesBeforeAPair", u"a\\\r\nb"_s, "[]a\r\nb"},
        ReadingCase{"backslashGoesAtTheEnd", u"a\\\n"_s, "[]a\n"},
        ReadingCase{"twoBackslashes", u"a\\\\\nb"_s, "[]a\\\nb"},
        ReadingCase{"threeBackslashes", u"a\\\\\\\nb"_s, "[]a\\\nb"},
        ReadingCase{"backslashInCodeStays", u"`a\\\nb`"_s, "[code]a\\\nb"},
        ReadingCase{"backslashInATagStays", u"<a b='\\\n'>"_s, "[html]<a b='\\\n'>"},
        ReadingCase{"backslashBetweenSpans", u"*a*\\\n*b*"_s, "[emphasis]a[]\n[emphasis]b"},
        ReadingCase{"referencedBackslashStays", u"&bsol;\nb"_s, "[]\\\nb"},
        ReadingCase{"lastBackslash", u"a\\"_s, "[]a\\"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(WhiteSpace, InlineMarkdownReading,
    testing::Values(ReadingCase{"runsOfSpaces", u" a   b\t\tc "_s, "[] a   b\t\tc "},
        ReadingCase{"formFeed", u"a\fb\n\f\f"_s, "[]a\fb\n\f\f"},
        ReadingCase{"formFeedInCode", u"`a\fb`"_s, "[code]a\fb"},
        ReadingCase{"formFeedAndItsStandIn", u"\f\u2000\f&#x2001;"_s, "[]\f\u2000\f\u2001"},
        ReadingCase{"formFeedFlanksAsASpace", u"*\fa*"_s, "[]*\fa*"},
        ReadingCase{"verticalTab", u"a\vb"_s, "[]a\vb"},
        ReadingCase{"otherNewlines", u"a\u0085b\u2028c\u2029d"_s, "[]a\u0085b\u2028c\u2029d"},
        ReadingCase{"noBreakSpace", u"\u00A0*\u00A0a*\u00A0"_s, "[]\u00A0*\u00A0a*\u00A0"},
        ReadingCase{"theGuardItself", u"\u205Fa\u205F"_s, "[]\u205Fa\u205F"},
        ReadingCase{"zero", QString(u"a\0b"_s), "[]a\uFFFDb"},
        ReadingCase{"zeroBeforeCode", QString(u"\0`b`"_s), "[]\uFFFD[code]b"},
        ReadingCase{"byteOrderMark", u"\uFEFFa *\uFEFFb*"_s, "[]\uFEFFa [emphasis]\uFEFFb"},
        ReadingCase{"twoByteOrderMarks", u"\uFEFF\uFEFFa"_s, "[]\uFEFF\uFEFFa"},
        ReadingCase{
            "astral", u"😀 **👩‍👩‍👧**"_s, "[]😀 [strong]👩‍👩‍👧"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Escapes, InlineMarkdownReading,
    testing::Values(
        ReadingCase{"escapedMarks", u"\\*a\\* \\_ \\~ \\[b](c) \\`"_s, "[]*a* _ ~ [b](c) `"},
        ReadingCase{"escapedLetter", u"\\a \\é"_s, "[]\\a \\é"},
        ReadingCase{"namedReference", u"&amp; &copy; &nbsp;|"_s, "[]& © \u00A0|"},
        ReadingCase{"numericReference", u"&#65;&#x42;&#0;"_s, "[]AB\uFFFD"},
        ReadingCase{"unknownReference", u"&nope; & &#; &#x;"_s, "[]&nope; & &#; &#x;"},
        ReadingCase{"formFeedReferenceStays", u"&#12;&#9;&#xC;"_s, "[]&#12;\t&#xC;"},
        ReadingCase{"lineFeedReference", u"a&#10;b&NewLine;"_s, "[]a\nb\n"},
        ReadingCase{"referencedStar", u"&#42;a&#42;"_s, "[]*a*"},
        ReadingCase{"escapedReference", u"\\&amp;"_s, "[]&amp;"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Html, InlineMarkdownReading,
    testing::Values(ReadingCase{"tags", u"a <b>c</b>"_s, "[]a [html]<b>[]c[html]</b>"},
        ReadingCase{"escapesStay", u"<a b=\"\\*&amp;\">"_s, "[html]<a b=\"\\*&amp;\">"},
        ReadingCase{"inStrong", u"**<br>**"_s, "[strong html]<br>"},
        ReadingCase{"comment", u"<!-- a *b* -->c"_s, "[html]<!-- a *b* -->[]c"},
        ReadingCase{"instruction", u"<?a *b* ?>c"_s, "[html]<?a *b* ?>[]c"},
        ReadingCase{"declaration", u"<!A *b*>c"_s, "[html]<!A *b*>[]c"},
        ReadingCase{"section", u"<![CDATA[*a*]]>c"_s, "[html]<![CDATA[*a*]]>[]c"},
        ReadingCase{"unclosedInstruction", u"<?a *b*"_s, "[]<?a [emphasis]b"},
        ReadingCase{"unclosedDeclaration", u"<!A *b*"_s, "[]<!A [emphasis]b"},
        ReadingCase{"unclosedSection", u"<![CDATA[*a*]]"_s, "[]<![CDATA[[emphasis]a[]]]"},
        ReadingCase{"unclosedOpenerInADestination", u"[a](b<?c)"_s, "[link=b<?c]a"},
        ReadingCase{"unclosedOpenerInATitle", u"[a](b '<?')"_s, "[link=b]a"},
        ReadingCase{"unclosedOpenerInCode", u"`<?`<?"_s, "[code]<?[]<?"},
        ReadingCase{"closedOuterUnclosedInner", u"<?x<?\?\?>"_s, "[html]<?x<?\?\?>"},
        ReadingCase{"lessThan", u"a < b > c"_s, "[]a < b > c"},
        ReadingCase{"scriptIsText", u"<script>a*b*</script>"_s,
            "[html]<script>[]a[emphasis]b[html]</script>"},
        ReadingCase{
            "block", u"<div>\n*a*\n</div>"_s, "[html]<div>[]\n[emphasis]a[]\n[html]</div>"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Links, InlineMarkdownReading,
    testing::Values(
        ReadingCase{"link", u"a [b](http://c.d \"e\") f"_s, "[]a [link=http://c.d]b[] f"},
        ReadingCase{"strongInside", u"[a **b**](c)"_s, "[link=c]a [strong link=c]b"},
        ReadingCase{"anglesWithSpaces", u"[a](<b c>)"_s, "[link=b c]a"},
        ReadingCase{"parentheses", u"[a](b(c)d)"_s, "[link=b(c)d]a"},
        ReadingCase{"escapesInTheDestination", u"[a](b\\)&amp;c)"_s, "[link=b)&c]a"},
        ReadingCase{"spacesInTheDestination", u"[a](b c)"_s, "[][a](b c)"},
        ReadingCase{"formFeedInTheDestination", u"[a](<b\fc>)"_s, "[link=b\fc]a"},
        ReadingCase{"noBaseAddress", u"[a](/b) [c](#d)"_s, "[link=/b]a[] [link=#d]c"},
        ReadingCase{"nonAsciiDestination", u"[a](ü?b=%20)"_s, "[link=ü?b=%20]a"},
        ReadingCase{"emptyDestination", u"[a]() [**b**](<>)"_s, "[]a [strong]b"},
        ReadingCase{"emptyText", u"[](a)"_s, ""},
        ReadingCase{"neighborsOfOneDestination", u"[a](b)[c](b)[d](e)"_s, "[link=b]ac[link=e]d"},
        ReadingCase{"linkInALink", u"[a [b](c) d](e)"_s, "[][a [link=c]b[] d](e)"},
        ReadingCase{"bareAddress", u"http://a.b www.c.d e@f.g"_s, "[]http://a.b www.c.d e@f.g"},
        ReadingCase{
            "addressInAngles", u"<http://a.b?c=*d*>"_s, "[link=http://a.b?c=*d*]http://a.b?c=*d*"},
        ReadingCase{"mailInAngles", u"<a@b.c>"_s, "[link=mailto:a@b.c]a@b.c"},
        ReadingCase{"mailThatBeginsAsAnInstruction", u"<?@a>"_s, "[link=mailto:?@a]?@a"},
        ReadingCase{"image", u"a ![b *c*](d) e"_s, "[]a b [emphasis]c[] e"},
        ReadingCase{"imageInALink", u"[![a](b)](c)"_s, "[link=c]a"},
        ReadingCase{"linkInAnImage", u"![a [b](c)](d)"_s, "[]a [link=c]b"},
        ReadingCase{"imageWithoutText", u"a![](b)c"_s, "[]ac"},
        ReadingCase{"definition", u"[a]: b\n\n[a] [c][a]"_s, "[][a]: b\n\n[a] [c][a]"},
        ReadingCase{"footnote", u"a[^1]\n\n[^1]: b"_s, "[]a[^1]\n\n[^1]: b"},
        ReadingCase{"taskList", u"- [ ] a\n- [x] b"_s, "[]- [ ] a\n- [x] b"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(Blocks, InlineMarkdownReading,
    testing::Values(ReadingCase{"heading", u"# a *b*\n## c"_s, "[]# a [emphasis]b[]\n## c"},
        ReadingCase{"closedHeading", u"# a #"_s, "[]# a #"},
        ReadingCase{"underlinedHeading", u"a\n===\nb\n---"_s, "[]a\n===\nb\n---"},
        ReadingCase{"bullets", u"- a\n* b\n+ c\n  - d"_s, "[]- a\n* b\n+ c\n  - d"},
        ReadingCase{"numbers", u"1. a\n2) b"_s, "[]1. a\n2) b"},
        ReadingCase{"quote", u"> a\n>> b"_s, "[]> a\n>> b"},
        ReadingCase{"rule", u"---\n***\n___"_s, "[]---\n***\n___"},
        ReadingCase{"table", u"|a|b|\n|-|-|\n|c|d|"_s, "[]|a|b|\n|-|-|\n|c|d|"},
        ReadingCase{"tildeFence", u"~~~\na\n~~~"_s, "[]~~~\na\n~~~"},
        ReadingCase{
            "straightQuotesAndDashes", u"\"a\" 'b' -- ... (c)"_s, "[]\"a\" 'b' -- ... (c)"}),
    rowName);

INSTANTIATE_TEST_SUITE_P(IllFormed, InlineMarkdownReading,
    testing::Values(ReadingCase{"highSurrogate", u"a"_s + QChar(0xD800), "refused"},
        ReadingCase{"lowSurrogate", QChar(0xDC00) + u"a"_s, "refused"},
        ReadingCase{"surrogatesInWrongOrder", QString(QChar(0xDC00)) + QChar(0xD800), "refused"},
        ReadingCase{"noncharacter", u"\uFFFE\uFDD0"_s, "[]\uFFFE\uFDD0"}),
    rowName);

/// The rows in which a text is too dear to be read as a whole; see `read` in the header.
TEST(InlineMarkdownCost, read_dearText_isReadBetweenBlankLines)
{
    const QString dear = u"*a ~b "_s.repeated(4000);
    const std::string runs = reading(u"**x\n\n**y\n\n**z**\n\n*"_s + dear + u"\n*v*\n\n*w*"_s);
    EXPECT_TRUE(runs.starts_with("[]**x\n\n**y\n\n[strong]z[]\n\n**a ~b ")) << runs.substr(0, 80);
    EXPECT_TRUE(runs.ends_with("*a ~b \n[emphasis]v[]\n\n[emphasis]w"))
        << runs.substr(runs.size() - 80);
}

TEST(InlineMarkdownCost, read_dearLine_staysLiteral)
{
    const QString dear = u"*a* [b](c) "_s.repeated(8000);
    const auto string = InlineMarkdown::read(dear);
    ASSERT_TRUE(string);
    EXPECT_EQ(test::pieces(*string), (test::Pieces{{dear}}));
}

TEST(InlineMarkdownCost, read_manySpansOfAnOrdinaryNote_areAllRead)
{
    const QString note = u"Say **this** and [that](a) *now*.\n"_s.repeated(1000);
    EXPECT_EQ(InlineMarkdown::read(note)->runs.size(), 6001U);
}

} // namespace
} // namespace sablequill
