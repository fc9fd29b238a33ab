// SPDX-License-Identifier: MIT
#include "NoteDocument.h"

#include "Ink.h"
#include "MarkdownParser.h"
#include "TextStyle.h"
#include "Widgets.h"

#include <QFontInfo>
#include <QTextBlock>
#include <QTextCursor>

#include <gtest/gtest.h>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

class NoteDocumentTest : public testing::Test {
protected:
    void make(const QString& markdown, double fontSize = 16)
    {
        made = makeNoteDocument(MarkdownParser::attributedString(markdown, fontSize), fontSize, 14);
    }

    /// The look of the first place where a word stands.
    QTextCharFormat look(const QString& word) const
    {
        const QTextCursor cursor = made.document->find(word);
        EXPECT_FALSE(cursor.isNull()) << word.toStdString();
        return cursor.charFormat();
    }

    QFont fontOf(const QString& word) const
    {
        return look(word).font().resolve(made.document->defaultFont());
    }

    NoteDocument made;
};

TEST_F(NoteDocumentTest, plainText_anySize_isOfThatSizeInTheDefaultFont)
{
    make(u"word"_s, 28);
    EXPECT_EQ(fontOf(u"word"_s).pixelSize(), 28);
    EXPECT_EQ(fontOf(u"word"_s).weight(), QFont::Normal);
    EXPECT_FALSE(look(u"word"_s).hasProperty(QTextFormat::ForegroundBrush));
    EXPECT_EQ(made.document->defaultFont(), font({28}));
}

TEST_F(NoteDocumentTest, inlineMarkdown_eachKind_looksLikeIt)
{
    make(u"plain **strong** *slanted* `code` ~~gone~~ [link](https://example.org/x)"_s);
    EXPECT_EQ(made.document->toPlainText(), u"plain strong slanted code gone link"_s);
    EXPECT_EQ(fontOf(u"strong"_s).weight(), QFont::Bold);
    EXPECT_TRUE(fontOf(u"slanted"_s).italic());
    EXPECT_TRUE(QFontInfo(fontOf(u"code"_s)).fixedPitch());
    EXPECT_EQ(fontOf(u"code"_s).pixelSize(), 16);
    EXPECT_TRUE(fontOf(u"gone"_s).strikeOut());
    EXPECT_FALSE(fontOf(u"plain"_s).strikeOut() || fontOf(u"plain"_s).italic());
    EXPECT_TRUE(look(u"link"_s).isAnchor());
    EXPECT_EQ(look(u"link"_s).anchorHref(), u"https://example.org/x"_s);
    EXPECT_TRUE(look(u"link"_s).fontUnderline());
    EXPECT_EQ(look(u"link"_s).foreground().color(), QColor(0x0a, 0x84, 0xff));
}

TEST_F(NoteDocumentTest, styledRuns_sizeWeightAndColor_areTaken)
{
    AttributedString note;
    note.append(u"big"_s, {RunFont{22, FontWeight::semibold}, SemanticColor::primary});
    note.append(u"dim"_s, {RunFont{16, FontWeight::regular}, SemanticColor::secondary});
    made = makeNoteDocument(note, 16, 14);
    EXPECT_EQ(fontOf(u"big"_s).pixelSize(), 22);
    EXPECT_EQ(fontOf(u"big"_s).weight(), QFont::DemiBold);
    EXPECT_EQ(look(u"big"_s).foreground().color(), color({InkRole::primary}, Surroundings::dark));
    EXPECT_EQ(look(u"dim"_s).foreground().color(), color({InkRole::secondary}, Surroundings::dark));
}

TEST_F(NoteDocumentTest, link_hostileDestination_isShownAsPlainTextOnly)
{
    AttributedString note;
    note.append(u"click"_s, {{}, {}, 0, u"https://e.org/<b>"_s + QString(500, u'x')});
    made = makeNoteDocument(note, 16, 14);
    EXPECT_FALSE(look(u"click"_s).toolTip().contains(u'<'));
    EXPECT_LT(look(u"click"_s).toolTip().size(), 300);
}

TEST_F(NoteDocumentTest, text_lineBreaksAndSpaces_areKept)
{
    const QString text = u"  a\n\nb\u00A0c\r\nd  "_s;
    make(text);
    EXPECT_EQ(made.document->blockCount(), 4);
    EXPECT_EQ(made.text.text(), text);
    EXPECT_EQ(made.text.shownLength(), made.document->characterCount() - 1);
}

TEST_F(NoteDocumentTest, emptyNote_isEmpty)
{
    make(QString());
    EXPECT_TRUE(made.document->isEmpty());
}

TEST_F(NoteDocumentTest, longParagraph_isCutAcrossRuns)
{
    make(u"*slanted* plain "_s.repeated(1000));
    EXPECT_GT(made.document->blockCount(), 3);
    for (QTextBlock block = made.document->begin(); block.isValid(); block = block.next())
        EXPECT_LE(block.length(), ShownText::longestBlock + 1);
    EXPECT_EQ(made.text.textBetween(0, made.text.shownLength()), made.text.text());
}

} // namespace
} // namespace sablequill
