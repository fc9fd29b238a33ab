// SPDX-License-Identifier: MIT
#include "NoteTextView.h"

#include "Ink.h"
#include "MarkdownParser.h"
#include "Widgets.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

/// A window that counts what the view leaves to it.
class Background : public QWidget {
public:
    int presses = 0;
    int moves = 0;
    int releases = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseMoveEvent(QMouseEvent*) override { ++moves; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
};

class NoteTextViewTest : public testing::Test {
protected:
    NoteTextViewTest()
    {
        window.setPalette(paletteFor(Surroundings::dark));
        window.resize(300, 150);
        view->setParent(&window);
        view->resize(300, 150);
        view->openLink = [this](const QUrl& link) { opened << link.toString(); };
        present(window);
        window.activateWindow();
    }

    void show(const QString& markdown, bool keepsPosition = false)
    {
        view->showNote(MarkdownParser::attributedString(markdown, 16), 16, keepsPosition);
        turn();
    }

    /// In the middle of the first place where a word stands.
    QPoint middleOf(const QString& word) const
    {
        QTextCursor cursor = view->document()->find(word);
        const QRect end = view->cursorRect(cursor);
        cursor.setPosition(cursor.anchor());
        return (view->cursorRect(cursor).center() + end.center()) / 2;
    }

    void click(QPoint place) { QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, place); }

    Background window;
    NoteTextView* view = new NoteTextView;
    QStringList opened;
};

TEST_F(NoteTextViewTest, padding_firstLine_standsFourteenPointsInside)
{
    show(u"text"_s);
    EXPECT_EQ(view->cursorRect().left(), 14);
    EXPECT_EQ(view->cursorRect().top(), 14);
    EXPECT_EQ(view->viewport()->geometry(), QRect(0, 0, 300, 150));
}

TEST_F(NoteTextViewTest, paint_text_isPrimaryOnClearGround)
{
    show(u"\u2588\u2588\u2588"_s);
    const QImage image = picture(*view);
    EXPECT_EQ(image.pixelColor(250, 100).alpha(), 0);
    EXPECT_NEAR(image.pixelColor(middleOf(u"\u2588\u2588"_s)).alphaF(), 0.85, 0.02);
}

TEST_F(NoteTextViewTest, copy_selection_isTheTextAsItCame)
{
    const QString text = u"a\u00A0b\r\nc \u2028 d\nlast"_s;
    show(text);
    QTest::keySequence(view, QKeySequence::SelectAll);
    QTest::keySequence(view, QKeySequence::Copy);
    const QMimeData* copied = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(copied->text(), text);
    EXPECT_FALSE(copied->hasHtml());
}

TEST_F(NoteTextViewTest, copy_longParagraph_hasNoBreaksOfOurs)
{
    const QString text(10'000, u'x');
    show(text);
    view->selectAll();
    view->copy();
    EXPECT_TRUE(QGuiApplication::clipboard()->text() == text);
}

TEST_F(NoteTextViewTest, drag_overText_selects)
{
    show(u"some words to select"_s);
    const QPoint start = middleOf(u"some"_s);
    const QPoint end = middleOf(u"select"_s);
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, start);
    QMouseEvent move(QEvent::MouseMove, end, view->viewport()->mapToGlobal(end), Qt::NoButton,
        Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(view->viewport(), &move);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, end);
    EXPECT_TRUE(view->textCursor().selectedText().contains(u"words to"_s));
    EXPECT_EQ(window.presses + window.moves + window.releases, 0);
}

TEST_F(NoteTextViewTest, type_anything_changesNothing)
{
    show(u"text"_s);
    QTest::keyClicks(view, u"abc"_s);
    QTest::keyClick(view, Qt::Key_Backspace);
    EXPECT_EQ(view->toPlainText(), u"text"_s);
}

TEST_F(NoteTextViewTest, arrows_withShift_select)
{
    show(u"text"_s);
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(view->textCursor().selectedText(), u"te"_s);
}

TEST_F(NoteTextViewTest, arrows_alone_scroll)
{
    show(u"line\n"_s.repeated(50));
    view->setFocus();
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_GT(view->verticalScrollBar()->value(), 0);
    EXPECT_FALSE(view->textCursor().hasSelection());
}

TEST_F(NoteTextViewTest, scrolling_longNote_shiftsNoText)
{
    show(u"line"_s);
    const int width = view->viewport()->width();
    show(u"line\n"_s.repeated(50));
    EXPECT_EQ(view->viewport()->width(), width);
    EXPECT_FALSE(view->verticalScrollBar()->isVisible());
}

TEST_F(NoteTextViewTest, showNote_anotherOrTheSame_startsAtTheTopOrStays)
{
    show(u"line\n"_s.repeated(50));
    view->verticalScrollBar()->setValue(120);
    show(u"line\n"_s.repeated(60), true);
    EXPECT_EQ(view->verticalScrollBar()->value(), 120);
    show(u"other\n"_s.repeated(60));
    EXPECT_EQ(view->verticalScrollBar()->value(), 0);
}

TEST_F(NoteTextViewTest, link_clicked_isOpenedIfAllowed)
{
    show(u"[page](https://example.org/) [file](file:///etc/passwd) [near](other.txt) "
         u"<someone@example.org>"_s);
    for (const QString& word : {u"page"_s, u"file"_s, u"near"_s, u"someone"_s})
        click(middleOf(word));
    EXPECT_EQ(opened, QStringList({u"https://example.org/"_s, u"mailto:someone@example.org"_s}));
    EXPECT_TRUE(view->document()->find(u"page"_s).hasSelection());
}

TEST_F(NoteTextViewTest, link_byKeyboard_isOpened)
{
    show(u"a [page](https://example.org/) b"_s);
    view->setFocus(Qt::TabFocusReason);
    QTest::keyClick(view, Qt::Key_Tab);
    QTest::keyClick(view, Qt::Key_Return);
    EXPECT_EQ(opened, QStringList({u"https://example.org/"_s}));
}

TEST_F(NoteTextViewTest, press_besideTheText_isTheWindows)
{
    show(u"short"_s);
    for (const QPoint place : {QPoint(5, 20), QPoint(295, 20), QPoint(100, 120), QPoint(50, 5)}) {
        SCOPED_TRACE(place.y());
        const int before = window.presses;
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, place);
        QMouseEvent move(QEvent::MouseMove, place, view->viewport()->mapToGlobal(place),
            Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view->viewport(), &move);
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, place);
        EXPECT_EQ(window.presses, before + 1);
        EXPECT_EQ(window.moves, before + 1);
        EXPECT_EQ(window.releases, before + 1);
    }
}

TEST_F(NoteTextViewTest, press_inAnEmptyNote_isTheWindows)
{
    show(QString());
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, QPoint(100, 60));
    EXPECT_EQ(window.presses, 1);
}

TEST_F(NoteTextViewTest, press_inALongNote_isTheTexts)
{
    show(u"line\n"_s.repeated(50));
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, QPoint(100, 120));
    EXPECT_EQ(window.presses, 0);
}

TEST_F(NoteTextViewTest, focus_byKeyOnly_showsARing)
{
    show(u"text"_s);
    view->clearFocus();
    view->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(picture(*view).pixelColor(150, 3).alpha(), 0);
    view->clearFocus();
    view->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(picture(*view).pixelColor(150, 3), QColor(0x0a, 0x84, 0xff));
}

TEST_F(NoteTextViewTest, loadResource_anything_isNothing)
{
    for (const QString& name : {u"https://example.org/a.png"_s, u"file:///etc/hostname"_s})
        EXPECT_FALSE(view->loadResource(QTextDocument::ImageResource, QUrl(name)).isValid());
}

TEST_F(NoteTextViewTest, contextMenu_opened_offersCopy)
{
    show(u"text"_s);
    view->selectAll();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20), QPoint(20, 20));
    QCoreApplication::sendEvent(view->viewport(), &event);
    auto* menu = view->findChild<QMenu*>();
    ASSERT_TRUE(menu);
    EXPECT_TRUE(menu->actions().first()->text().contains(u"Copy"_s));
    menu->close();
}

} // namespace
} // namespace sablequill
