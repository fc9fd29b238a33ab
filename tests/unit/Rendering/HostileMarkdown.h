// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <array>

namespace sablequill::test {

/// Text on which a reader of inline Markdown may take time that grows with the square of its
/// length: `head`, then `unit` over and over, then `tail` over and over in the same number when it
/// repeats, or once.
struct HostileMarkdown {
    const char* name;
    const char16_t* head;
    const char16_t* unit;
    const char16_t* tail = u"";
    bool isTailRepeated = false;

    /// At least `size` UTF-16 code units long.
    QString text(qsizetype size) const
    {
        const QString first = QString::fromUtf16(unit);
        const QString last = QString::fromUtf16(tail);
        const qsizetype round = first.size() + (isTailRepeated ? last.size() : 0);
        const qsizetype count = size / round + 1;
        return QString::fromUtf16(head) + first.repeated(count)
            + last.repeated(isTailRepeated ? count : 1);
    }
};

inline constexpr auto hostileMarkdown = std::to_array<HostileMarkdown>({
    {"openBrackets", u"", u"["},
    {"nestedBrackets", u"", u"[", u"]", true},
    {"nestedBracketsWithDestination", u"", u"[", u"](a)", true},
    {"closeBrackets", u"", u"]"},
    {"bracketPairs", u"", u"[]"},
    {"bracketsWithLabels", u"", u"[a][b"},
    {"labelsOfAThousand", u"", u"[a][bcdefghijklmnopqrstuvwxyz\\]"},
    {"openStars", u"", u"*a "},
    {"closeStars", u"", u"a* "},
    {"starsAlone", u"", u"*"},
    {"nestedStars", u"", u"*a ", u" b*", true},
    {"nestedPairsOfStars", u"", u"**a ", u" b**", true},
    {"starsOfTwoLengths", u"", u"*a **a "},
    {"starsOfThreeLengths", u"", u"*a**b***c"},
    {"starsThatOpenAndClose", u"", u"a**b*c"},
    {"openUnderscores", u"", u"_a "},
    {"underscoresAlone", u"", u"_"},
    {"nestedUnderscores", u"", u"_a ", u" b_", true},
    {"starsAndUnderscores", u"", u"*a_ "},
    {"starsInUnderscores", u"", u"*_a_ "},
    {"underscoresThenFailingStars", u"", u"_a ", u"b* c_ ", true},
    {"starThenPairs", u"a**b", u"c* "},
    {"openTildes", u"", u"~a "},
    {"tildesAlone", u"", u"~"},
    {"nestedTildes", u"", u"~a ", u" b~", true},
    {"nestedPairsOfTildes", u"", u"~~a ", u" b~~", true},
    {"tildePairThenSingleClosers", u"~~a ", u"b~ "},
    {"tildeThenPairClosers", u"~a ", u"b~~ "},
    {"tildesOfTwoLengths", u"", u"~a~~b "},
    {"starsAmongTildes", u"", u"*~"},
    {"threeDelimiters", u"", u"~a*b_"},
    {"openImages", u"", u"![a "},
    {"nestedImages", u"", u"![a", u"](b)", true},
    {"imagesInLinks", u"", u"[![a](b)](c)"},
    {"imageWithEmptyLink", u"", u"![[]()"},
    {"openImagesThenLinks", u"", u"![ ", u"[a](b)", true},
    {"backticksAlone", u"", u"`"},
    {"backticksOfTwoLengths", u"", u"`a``"},
    {"unclosedPairOfBackticks", u"``", u"`a"},
    {"backslashesBeforeBackticks", u"", u"\\`a`"},
    {"openComments", u"", u"<!--a "},
    {"openBareComments", u"", u"<!--"},
    {"openDeclarations", u"", u"<!A "},
    {"smallDeclarations", u"", u"<!a "},
    {"openInstructions", u"", u"<?a "},
    {"instructionsWithAFalseEnd", u"", u"<?a", u"?\?>"},
    {"openSections", u"", u"<![CDATA["},
    {"sectionsWithAFalseEnd", u"", u"<![CDATA[", u"]]]>"},
    {"openTags", u"", u"<a "},
    {"openAttributes", u"", u"<a b=\""},
    {"openAttributesOfTwoQuotes", u"", u"<a b=\"c' "},
    {"longTag", u"<a", u" b"},
    {"closingTags", u"", u"</a"},
    {"openAddresses", u"", u"<a:b"},
    {"openMailAddresses", u"", u"<a@b.c"},
    {"longMailAddress", u"<a@b", u".c"},
    {"openDestinations", u"", u"[a](b"},
    {"emptyOpenDestinations", u"", u"[a]("},
    {"destinationsInAngles", u"", u"[a](<b"},
    {"destinationsInAnglesOnLines", u"", u"[a](\n<b\n"},
    {"escapedAngles", u"", u"[a](<\\<"},
    {"parenthesesInADestination", u"[a](", u"(", u")", true},
    {"openTitles", u"", u"[a](b \"c"},
    {"openTitlesOfTwoQuotes", u"", u"[a](b \"c [a](b 'd "},
    {"openTitlesInParentheses", u"", u"[a](b (c"},
    {"linksAndStars", u"", u"[a](b)*"},
    {"linksBehindStars", u"", u"*a ", u"[a](b)", true},
    {"linksBehindTildes", u"", u"~a ", u"[a](b)", true},
    {"linksAlone", u"", u"[a](b)"},
    {"linksAndStarsOnLines", u"", u"[a](b)*\n"},
    {"linksAndStarsInParagraphs", u"", u"[a](b) *c\n\n"},
    {"dearParagraphs", u"", u"*a *b *c *d *e *f *g *h\n[a](b)[a](b)[a](b)[a](b)\n\n"},
    {"starsOnLines", u"", u"*a\n"},
    {"starsInParagraphs", u"", u"*a\n\n"},
    {"ampersands", u"", u"&"},
    {"openReferences", u"", u"&#x0000"},
    {"formFeedReferences", u"\f", u"&#12;"},
    {"formFeeds", u"", u"\f"},
    {"backslashes", u"", u"\\"},
    {"backslashesBeforeBreaks", u"", u"\\\n"},
    {"breaks", u"", u"\n"},
    {"carriageReturns", u"", u"\r"},
    {"pairedBreaks", u"", u"\r\n"},
    {"spaces", u"", u" "},
    {"tabs", u"", u"\t"},
    {"quoteMarkers", u"", u">"},
    {"listMarkers", u"", u"- "},
    {"tableRows", u"", u"|a|\n|-|\n"},
    {"definitions", u"", u"[a]: b\n"},
    {"zeros", u"", u"\ufffd\u0001"},
});

} // namespace sablequill::test
