// SPDX-License-Identifier: MIT
#include "EditBuffer.h"

#include "Widgets.h"

#include <QPlainTextDocumentLayout>
#include <QTextCursor>
#include <QTextDocument>

#include <gtest/gtest.h>

#include <random>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

struct TypedRow {
    const char* name;
    QString text;
    qsizetype position; ///< All as the document reports it.
    qsizetype removed;
    QString added;
    QString after;
};

const QString block = QString(QChar::ParagraphSeparator);

const TypedRow typedRows[] = {
    {"type at the end", u"ab"_s, 2, 0, u"c"_s, u"abc"_s},
    {"type into nothing", QString(), 0, 0, u"x"_s, u"x"_s},
    {"delete everything", u"a\r\nb"_s, 0, 3, QString(), QString()},
    {"new line", u"ab"_s, 1, 0, block, u"a\nb"_s},
    {"keep CR LF before", u"a\r\nb"_s, 3, 0, u"c"_s, u"a\r\nbc"_s},
    {"keep CR LF behind", u"a\r\nb"_s, 0, 0, u"c"_s, u"ca\r\nb"_s},
    {"delete a CR LF", u"a\r\nb"_s, 1, 1, QString(), u"ab"_s},
    {"delete behind a CR LF", u"a\r\nbc"_s, 2, 1, QString(), u"a\r\nc"_s},
    {"keep U+2029", u"a\u2029b"_s, 2, 1, u"c"_s, u"a\u2029c"_s},
    {"delete a U+2029", u"a\u2029b"_s, 1, 1, QString(), u"ab"_s},
    {"keep a no-break space", u"a\u00A0b"_s, 3, 0, u"c"_s, u"a\u00A0bc"_s},
    {"type a no-break space", u"ab"_s, 1, 0, u"\u00A0"_s, u"a\u00A0b"_s},
    {"keep U+2028", u"a\u2028b"_s, 3, 0, u"c"_s, u"a\u2028bc"_s},
    {"keep what is shown as another sign", u"\uFFFCa"_s, 2, 0, u"b"_s, u"\uFFFCab"_s},
    {"report of the whole document", u"a\r\nb\u2029c"_s, 0, 5,
        u"a"_s + block + u"bX"_s + block + u"c"_s, u"a\r\nbX\u2029c"_s},
    {"report without a change", u"a\r\nb"_s, 0, 3, u"a"_s + block + u"b"_s, u"a\r\nb"_s},
    {"replace a selection", u"one\r\ntwo"_s, 2, 3, u"X"_s, u"onXwo"_s},
    {"lone CR meets LF", u"a\rX\nb"_s, 2, 1, QString(), u"a\n\nb"_s},
    {"new line behind a lone CR", u"a\rb"_s, 2, 0, block, u"a\n\nb"_s},
    {"lone CR stays elsewhere", u"a\rb"_s, 3, 0, u"c"_s, u"a\rbc"_s},
    {"surrogate pair", u"ab"_s, 1, 0, QString::fromUcs4(U"\U0001F600"),
        u"a"_s + QString::fromUcs4(U"\U0001F600") + u"b"_s},
};

TEST(EditBuffer, shownChanged_tableOfChanges_touchesNothingElse)
{
    for (const TypedRow& row : typedRows) {
        SCOPED_TRACE(row.name);
        EditBuffer buffer;
        buffer.setText(row.text);
        const auto edit = buffer.shownChanged(row.position, row.removed, row.added);
        EXPECT_EQ(buffer.text(), row.after);
        EXPECT_EQ(edit.has_value(), row.text != row.after);
        if (!edit)
            continue;
        EXPECT_EQ(QString(row.text).replace(edit->position, edit->removed.size(), edit->inserted),
            row.after);
        buffer.apply(edit->inverted());
        EXPECT_EQ(buffer.text(), row.text);
    }
}

TEST(EditBuffer, shownChanged_softBreakDeleted_changesNoText)
{
    EditBuffer buffer;
    buffer.setText(QString(5000, u'x'));
    ASSERT_TRUE(buffer.isSoftBreak(4000));
    EXPECT_FALSE(buffer.shownChanged(4000, 1, {}).has_value());
    EXPECT_EQ(buffer.text(), QString(5000, u'x'));
    EXPECT_FALSE(buffer.isSoftBreak(4000));
    EXPECT_EQ(buffer.shownLength(), 5000);
}

TEST(EditBuffer, shownChanged_aroundASoftBreak_movesIt)
{
    EditBuffer buffer;
    buffer.setText(QString(5000, u'x'));
    buffer.shownChanged(10, 0, u"ab");
    EXPECT_TRUE(buffer.isSoftBreak(4002));
    buffer.shownChanged(4003, 0, u"c");
    EXPECT_TRUE(buffer.isSoftBreak(4002));
    EXPECT_EQ(buffer.text().at(4002), QChar(u'c'));
    buffer.shownChanged(4000, 5, u"-");
    EXPECT_EQ(buffer.shownLength(), buffer.text().size());
}

TEST(EditBuffer, replacement_pastedText_hasPlainLineBreaks)
{
    EditBuffer buffer;
    buffer.setText(u"a\r\nb"_s);
    const TextEdit edit = buffer.replacement(1, 2, u"1\r\n2\r3\u00A0"_s);
    EXPECT_EQ(edit, (TextEdit{1, u"\r\n"_s, u"1\n2\n3\u00A0"_s}));
    buffer.apply(edit);
    EXPECT_EQ(buffer.text(), u"a1\n2\n3\u00A0b"_s);
}

TEST(EditBuffer, replacement_newLineBehindALoneCR_keepsBothBreaks)
{
    EditBuffer buffer;
    buffer.setText(u"a\rb"_s);
    buffer.apply(buffer.replacement(2, 2, u"\nc"_s));
    EXPECT_EQ(buffer.text(), u"a\n\ncb"_s);
}

TEST(EditBuffer, apply_longText_isShownInBlocks)
{
    EditBuffer buffer;
    buffer.setText(u"a\nb"_s);
    const ShownEdit shown = buffer.apply({1, {}, QString(10'000, u'x')});
    EXPECT_EQ(shown.position, 1);
    EXPECT_EQ(shown.removed, 0);
    EXPECT_EQ(shown.inserted.count(QChar::ParagraphSeparator), 2);
    EXPECT_EQ(buffer.shownLength(), 10'003 + 2);
}

/// A document that shows a buffer and reports to it, as the editor's does.
class Shown {
public:
    explicit Shown(const QString& text)
    {
        // Without a layout a document reports nothing.
        document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
        QTextCursor(&document).insertText(buffer.setText(text));
        QObject::connect(&document, &QTextDocument::contentsChange, &document,
            [this](int position, int removed, int added) {
                if (!isApplying)
                    report(position, removed, added);
            });
    }

    void type(int position, int removed, const QString& text)
    {
        QTextCursor cursor(&document);
        cursor.setPosition(position);
        cursor.setPosition(position + removed, QTextCursor::KeepAnchor);
        cursor.insertText(text);
    }

    void apply(const TextEdit& edit)
    {
        const ShownEdit shown = buffer.apply(edit);
        isApplying = true;
        type(static_cast<int>(shown.position), static_cast<int>(shown.removed), shown.inserted);
        isApplying = false;
    }

    /// Whether the document shows what the buffer says, line breaks of both kinds being alike.
    bool isInStep() const
    {
        QString all = document.toRawText();
        QString expected = buffer.shownBetween(0, buffer.shownLength());
        for (QString* characters : {&all, &expected})
            characters->replace(QChar::LineSeparator, QChar::ParagraphSeparator);
        return all == expected;
    }

    QTextDocument document;
    EditBuffer buffer;
    std::vector<TextEdit> edits;

private:
    void report(int position, int removed, int added)
    {
        const int end = std::min(position + added, document.characterCount() - 1);
        QString inserted;
        for (int at = position; at < end; ++at)
            inserted += document.characterAt(at);
        removed = std::min<int>(removed, static_cast<int>(buffer.shownLength()) - position);
        if (const auto edit = buffer.shownChanged(position, removed, inserted))
            edits.push_back(*edit);
    }

    bool isApplying = false;
};

class EditBufferOnDocument : public testing::TestWithParam<unsigned> { };

TEST_P(EditBufferOnDocument, anyEdits_textAndDocument_stayTogetherAndCanBeTakenBack)
{
    std::mt19937 random(GetParam());
    const auto below = [&](qsizetype limit) {
        return static_cast<int>(std::uniform_int_distribution<qsizetype>(0, limit - 1)(random));
    };
    const QStringList pieces{u"a"_s, u"word "_s, u"\n"_s, u"\r\n"_s, u"\r"_s, u"\u2029"_s,
        u"\u2028"_s, u"\u00A0"_s, u"\uFFFC"_s, QString(4500, u'x'), QString()};
    QString text;
    for (int i = 0; i < 30; ++i)
        text += pieces.at(below(pieces.size()));

    Shown shown(text);
    for (int step = 0; step < 60; ++step) {
        const int length = shown.document.characterCount() - 1;
        const int start = below(length + 1);
        const int removed = below(3) ? below(std::min(length - start, 3) + 1) : 0;
        const QString piece = pieces.at(below(pieces.size()));
        // Nobody types what is shown as another sign.
        if (below(2) && piece != u"\uFFFC"_s) {
            shown.type(start, removed, piece);
        } else {
            const TextEdit edit = shown.buffer.replacement(start, start + removed, piece);
            shown.edits.push_back(edit);
            shown.apply(edit);
        }
        ASSERT_TRUE(shown.isInStep()) << step;
        ASSERT_EQ(shown.buffer.shownLength(), shown.document.characterCount() - 1);
    }
    for (auto edit = shown.edits.rbegin(); edit != shown.edits.rend(); ++edit)
        shown.apply(edit->inverted());
    EXPECT_TRUE(shown.buffer.text() == text);
}

INSTANTIATE_TEST_SUITE_P(Seeds, EditBufferOnDocument, testing::Range(1U, 9U));

} // namespace
} // namespace sablequill
