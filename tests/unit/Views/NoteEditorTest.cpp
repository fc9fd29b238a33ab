// SPDX-License-Identifier: MIT
#include "NoteEditor.h"

#include "Ink.h"
#include "Widgets.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QPaintEvent>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

#include <gtest/gtest.h>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

class NoteEditorTest : public testing::Test {
protected:
    NoteEditorTest()
    {
        window.resize(300, 200);
        editor->setParent(&window);
        editor->setGeometry(0, 0, 300, 150);
        before.setGeometry(0, 160, 100, 20);
        after.setGeometry(150, 160, 100, 20);
        for (QWidget* neighbor : {&before, &after})
            neighbor->setFocusPolicy(Qt::TabFocus);
        QWidget::setTabOrder(&before, editor);
        QWidget::setTabOrder(editor, &after);
        present(window);
        window.activateWindow();
        editor->setFocus();
        QObject::connect(editor, &NoteEditor::edited, editor, [this] { ++edits; });
    }

    void load(const QString& text, int cursorAt = -1)
    {
        content.setText(text);
        editor->load();
        QTextCursor cursor = editor->textCursor();
        cursor.setPosition(cursorAt < 0 ? editor->document()->characterCount() - 1 : cursorAt);
        editor->setTextCursor(cursor);
    }

    void select(int start, int end)
    {
        QTextCursor cursor = editor->textCursor();
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        editor->setTextCursor(cursor);
    }

    void type(const QString& text) { QTest::keyClicks(editor, text); }
    void press(QKeySequence::StandardKey key) { QTest::keySequence(editor, QKeySequence(key)); }

    /// Whether the document shows what the buffer holds.
    bool isInStep() const
    {
        QString shown = editor->document()->toRawText();
        QString expected = content.shownBetween(0, content.shownLength());
        for (QString* text : {&shown, &expected})
            text->replace(QChar::LineSeparator, QChar::ParagraphSeparator);
        return shown == expected;
    }

    QWidget window;
    QWidget before{&window};
    EditBuffer content;
    NoteEditor* editor = new NoteEditor(content);
    QWidget after{&window};
    int edits = 0;
};

TEST_F(NoteEditorTest, type_characters_reachTheBufferOneByOne)
{
    load(u"ab"_s);
    type(u"cd"_s);
    EXPECT_EQ(content.text(), u"abcd"_s);
    EXPECT_EQ(edits, 2);
}

TEST_F(NoteEditorTest, load_anyText_isNoEdit)
{
    load(u"a\r\nb"_s);
    editor->setFont(QFont());
    turn();
    EXPECT_EQ(edits, 0);
    EXPECT_EQ(content.text(), u"a\r\nb"_s);
}

TEST_F(NoteEditorTest, type_besideUnusualCharacters_leavesThem)
{
    const QString text = u"a\r\nb\u2029c\u00A0d\u2028e\uFFFCf\rg"_s;
    load(text, 0);
    type(u"x"_s);
    EXPECT_EQ(content.text(), u"x"_s + text);
    load(text);
    type(u"x"_s);
    EXPECT_EQ(content.text(), text + u"x"_s);
    EXPECT_TRUE(isInStep());
}

TEST_F(NoteEditorTest, returnKeys_everyKind_areALineFeed)
{
    load(u"a"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::keyClick(editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClick(editor, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(content.text(), u"a\n\n\n"_s);
}

TEST_F(NoteEditorTest, tab_alone_isACharacter)
{
    load(u"a"_s);
    QTest::keyClick(editor, Qt::Key_Tab);
    EXPECT_EQ(content.text(), u"a\t"_s);
    EXPECT_TRUE(editor->hasFocus());
}

TEST_F(NoteEditorTest, tab_withModifier_leavesTheEditor)
{
    load(u"a"_s);
    QTest::keyClick(editor, Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(before.hasFocus());
    editor->setFocus();
    QTest::keyClick(editor, Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_TRUE(after.hasFocus());
    EXPECT_EQ(content.text(), u"a"_s);
}

TEST_F(NoteEditorTest, undo_deletedLineBreak_bringsTheSameBytesBack)
{
    load(u"a\r\nb"_s, 2);
    QTest::keyClick(editor, Qt::Key_Backspace);
    EXPECT_EQ(content.text(), u"ab"_s);
    press(QKeySequence::Undo);
    EXPECT_EQ(content.text(), u"a\r\nb"_s);
    EXPECT_TRUE(isInStep());
    press(QKeySequence::Redo);
    EXPECT_EQ(content.text(), u"ab"_s);
    EXPECT_EQ(edits, 3);
}

TEST_F(NoteEditorTest, undo_afterLoad_doesNothing)
{
    load(u"one"_s);
    type(u"x"_s);
    load(u"two"_s);
    press(QKeySequence::Undo);
    EXPECT_EQ(content.text(), u"two"_s);
}

TEST_F(NoteEditorTest, copyAndPaste_unusualCharacters_areExact)
{
    const QString text = u"a\u00A0b\u2028c\td"_s;
    load(text + u"\r\nend"_s);
    select(0, 7);
    press(QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    select(8, 11);
    press(QKeySequence::Paste);
    EXPECT_EQ(content.text(), text + u"\r\n"_s + text);
    EXPECT_TRUE(isInStep());
}

TEST_F(NoteEditorTest, cut_selection_isTakenOut)
{
    load(u"a\r\nb\r\nc"_s);
    select(1, 4);
    press(QKeySequence::Cut);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"\r\nb\r\n"_s);
    EXPECT_EQ(content.text(), u"ac"_s);
}

TEST_F(NoteEditorTest, paste_otherLineBreaks_becomeLineFeeds)
{
    load(QString());
    QGuiApplication::clipboard()->setText(u"a\r\nb\rc"_s);
    press(QKeySequence::Paste);
    EXPECT_EQ(content.text(), u"a\nb\nc"_s);
    EXPECT_EQ(edits, 1);
    press(QKeySequence::Undo);
    EXPECT_EQ(content.text(), QString());
}

TEST_F(NoteEditorTest, paste_richText_isPlain)
{
    load(QString());
    auto* data = new QMimeData;
    data->setHtml(u"<b>bold</b>"_s);
    data->setText(u"bold"_s);
    QGuiApplication::clipboard()->setMimeData(data);
    press(QKeySequence::Paste);
    EXPECT_EQ(content.text(), u"bold"_s);
    EXPECT_FALSE(editor->document()->begin().charFormat().font().bold());
}

TEST_F(NoteEditorTest, paste_hugeLine_isShownInBlocks)
{
    load(u"ab"_s, 1);
    const QString huge(100'000, u'x');
    QGuiApplication::clipboard()->setText(huge);
    press(QKeySequence::Paste);
    EXPECT_TRUE(content.text() == u"a"_s + huge + u"b"_s);
    EXPECT_GT(editor->document()->blockCount(), 20);
    EXPECT_TRUE(isInStep());
}

TEST_F(NoteEditorTest, backspace_behindASoftBreak_deletesTheCharacterBeforeIt)
{
    load(QString(5000, u'x'), 4001);
    QTest::keyClick(editor, Qt::Key_Backspace);
    EXPECT_EQ(content.text().size(), 4999);
    EXPECT_TRUE(isInStep());
}

TEST_F(NoteEditorTest, delete_beforeASoftBreak_deletesTheCharacterBehindIt)
{
    load(QString(5000, u'x'), 4000);
    QTest::keyClick(editor, Qt::Key_Delete);
    EXPECT_EQ(content.text().size(), 4999);
    EXPECT_TRUE(isInStep());
}

TEST_F(NoteEditorTest, joinedLines_tooLongForABlock_areCutAnew)
{
    const QString line(3900, u'x');
    load(line + u"\n"_s + line + u"\n"_s + line, 3900);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClick(editor, Qt::Key_End);
    select(7800, 7800);
    QTest::keyClick(editor, Qt::Key_Delete);
    EXPECT_TRUE(content.text() == line.repeated(3));
    EXPECT_EQ(editor->document()->blockCount(), 3);
    EXPECT_TRUE(isInStep());
    EXPECT_EQ(content.place(editor->textCursor().position()).text, 7800);
    type(u"y"_s);
    EXPECT_EQ(content.text().at(7800), QChar(u'y'));
}

TEST_F(NoteEditorTest, inputMethod_commit_isTyped)
{
    load(u"ab"_s, 1);
    QInputMethodEvent composing(u"ka"_s, {});
    QCoreApplication::sendEvent(editor, &composing);
    EXPECT_EQ(content.text(), u"ab"_s);
    QInputMethodEvent committed;
    committed.setCommitString(u"\u304B"_s);
    QCoreApplication::sendEvent(editor, &committed);
    EXPECT_EQ(content.text(), u"a\u304Bb"_s);
    EXPECT_TRUE(isInStep());
}

TEST_F(NoteEditorTest, drop_text_isInsertedWhereItFalls)
{
    load(u"a\r\nb"_s);
    QMimeData data;
    data.setText(u"new\r\n"_s);
    QTextCursor target(editor->document());
    target.setPosition(2);
    const QPoint place = editor->cursorRect(target).center();
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(editor->viewport(), &enter);
    QDropEvent event(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(editor->viewport(), &event);
    EXPECT_EQ(content.text(), u"a\r\nnew\nb"_s);
    EXPECT_TRUE(isInStep());
}

TEST_F(NoteEditorTest, contextMenu_actions_work)
{
    load(u"text"_s);
    const auto open = [&] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20), QPoint(20, 20));
        QCoreApplication::sendEvent(editor->viewport(), &event);
        return editor->findChild<QMenu*>();
    };
    const auto action = [](QMenu* menu, const QString& title) {
        for (QAction* candidate : menu->actions())
            if (candidate->text() == title)
                return candidate;
        return static_cast<QAction*>(nullptr);
    };
    QMenu* menu = open();
    ASSERT_TRUE(menu);
    EXPECT_FALSE(action(menu, u"Undo"_s)->isEnabled());
    EXPECT_FALSE(action(menu, u"Cut"_s)->isEnabled());
    action(menu, u"Select All"_s)->trigger();
    delete menu;
    menu = open();
    action(menu, u"Delete"_s)->trigger();
    EXPECT_EQ(content.text(), QString());
    delete menu;
    menu = open();
    EXPECT_TRUE(action(menu, u"Undo"_s)->isEnabled());
    action(menu, u"Undo"_s)->trigger();
    EXPECT_EQ(content.text(), u"text"_s);
    delete menu;
}

TEST_F(NoteEditorTest, geometry_text_isPaddedByTwelvePoints)
{
    load(u"text"_s, 0);
    EXPECT_EQ(editor->viewport()->geometry(), QRect(12, 12, 276, 126));
    EXPECT_EQ(editor->cursorRect().topLeft(), QPoint(0, 0));
}

TEST_F(NoteEditorTest, load_longText_showsItsTopWithTheCursorAtItsEnd)
{
    content.setText(u"line\n"_s.repeated(100));
    editor->load();
    turn();
    EXPECT_EQ(editor->verticalScrollBar()->value(), 0);
    EXPECT_TRUE(editor->textCursor().atEnd());
    type(u"x"_s);
    EXPECT_GT(editor->verticalScrollBar()->value(), 50);
}

TEST_F(NoteEditorTest, cursor_inTheEditor_showsOnClearGround)
{
    window.setPalette(paletteFor(Surroundings::dark));
    load(u"text\n"_s, 5);
    const auto alphaAtCursor = [&] {
        const QPoint place = editor->cursorRect().center() + QPoint(12, 12);
        return picture(*editor).pixelColor(place).alphaF();
    };
    EXPECT_NEAR(alphaAtCursor(), 0.85, 0.02);
    after.setFocus();
    EXPECT_EQ(alphaAtCursor(), 0);
}

TEST_F(NoteEditorTest, cursor_moved_leavesNothingBehind)
{
    load(u"text\nmore"_s, 9);
    QWidget& viewport = *editor->viewport();
    class PaintCounter : public QObject {
    public:
        QRegion painted;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::Paint)
                painted += static_cast<QPaintEvent*>(event)->region();
            return false;
        }
    } counter;
    turn();
    viewport.installEventFilter(&counter);
    const QRect before = editor->cursorRect();
    QTest::keyClick(editor, Qt::Key_Home);
    turn();
    EXPECT_TRUE(counter.painted.contains(QRect(before.topLeft(), QSize(2, before.height()))));
    EXPECT_TRUE(counter.painted.contains(QRect(editor->cursorRect().topLeft(), QSize(2, 5))));
}

TEST_F(NoteEditorTest, document_ofItsOwn_hasNoUndo)
{
    load(u"a"_s);
    type(u"b"_s);
    EXPECT_FALSE(editor->document()->isUndoAvailable());
}

} // namespace
} // namespace sablequill
