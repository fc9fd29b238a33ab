// SPDX-License-Identifier: MIT
#include "NotesFixture.h"

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

struct TitleCase {
    const char* name;
    QString content;
    QString title;
};

void PrintTo(const TitleCase& row, std::ostream* out)
{
    *out << row.name;
}

class NoteTitle : public NotesFixture, public testing::WithParamInterface<TitleCase> { };

TEST_P(NoteTitle, updateContent_titleDerived)
{
    start(1);
    manager->updateContent(note(0).id, GetParam().content);
    EXPECT_EQ(note(0).title.toStdString(), GetParam().title.toStdString());
    EXPECT_EQ(stored().front().title, note(0).title);
}

INSTANTIATE_TEST_SUITE_P(Headings, NoteTitle,
    testing::Values(TitleCase{"heading", u"# Title\nrest"_s, u"Title"_s},
        TitleCase{"afterEmptyLines", u"\n\n   # word  \nfurther"_s, u"word"_s},
        TitleCase{"spacesInside_notTrimmedAgain", u"#   x"_s, u"  x"_s},
        TitleCase{"longHeading_notCut", u"# "_s + QString(100, u'x'), QString(100, u'x')},
        TitleCase{"markerAlone", u"#"_s, u"#"_s}, TitleCase{"markerAndSpace", u"# "_s, u"#"_s},
        TitleCase{"markerAndTab", u"#\tx"_s, u"#\tx"_s},
        TitleCase{"markerAndNoBreakSpace", u"#\u00A0x"_s, u"#\u00A0x"_s},
        TitleCase{"markerWithoutSpace", u"#x"_s, u"#x"_s},
        TitleCase{"markOnTheSpace_anotherCharacter", u"# \u0301x"_s, u"# \u0301x"_s},
        TitleCase{"secondLevel", u"## Tips"_s, u"## Tips"_s},
        TitleCase{"secondLevelLong", u"## "_s + QString(100, u'x'), u"## "_s + QString(37, u'x')},
        TitleCase{"doubleMarker", u"# # x"_s, u"# x"_s}));

INSTANTIATE_TEST_SUITE_P(Lines, NoteTitle,
    testing::Values(TitleCase{"empty", u""_s, u"Untitled"_s},
        TitleCase{"blankLines", u" \n\t\n\r\n\u2028\u3000"_s, u"Untitled"_s},
        TitleCase{"firstLine", u"one\n# two"_s, u"one"_s},
        TitleCase{"trimmed", u"\t \u00A0one \u3000\n"_s, u"one"_s},
        TitleCase{"carriageReturnLineFeed", u"\r\n\r\none\r\ntwo"_s, u"one"_s},
        TitleCase{"lineSeparator", u"one\u2028two"_s, u"one"_s},
        TitleCase{"paragraphSeparator", u"\u2029one\u2029two"_s, u"one"_s},
        TitleCase{"verticalTabAndFormFeed", u"\vone\ftwo"_s, u"one"_s},
        TitleCase{"nextLine", u"one\u0085two"_s, u"one"_s},
        TitleCase{"exactly40", QString(40, u'x'), QString(40, u'x')},
        TitleCase{"long", QString(100, u'x'), QString(40, u'x')},
        TitleCase{"longAfterTrimming", u"    "_s + QString(100, u'x'), QString(40, u'x')},
        TitleCase{"graphemeClusters", u"👩‍👩‍👧‍👦"_s.repeated(41),
            u"👩‍👩‍👧‍👦"_s.repeated(40)},
        TitleCase{"zeroWidthSpace_isSomething", u"\u200B\nx"_s, u"\u200B"_s}));

} // namespace
} // namespace sablequill
