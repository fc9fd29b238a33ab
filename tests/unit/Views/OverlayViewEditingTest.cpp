// SPDX-License-Identifier: MIT
#include "OverlayViewFixture.h"

#include "CrossFade.h"
#include "MirkpadItem.h"

#include <QScrollBar>

namespace sablequill {
namespace {

class OverlayViewEditingTest : public OverlayViewFixture {
protected:
    /// A stamp that no later change can have.
    void forgetStamps()
    {
        notes.notes.modify([](std::vector<MirkpadItem>& items) {
            for (MirkpadItem& item : items)
                item.updatedAt = {};
        });
        turn();
    }

    bool isStamped(int index) { return note(index).updatedAt != Timestamp(); }
};

TEST_F(OverlayViewEditingTest, editButton_clicked_switchesToTheEditorAndBack)
{
    setNotes({u"text"_s});
    QTest::mouseClick(&child(u"editButton"_s), Qt::LeftButton);
    EXPECT_TRUE(overlay.isEditing);
    EXPECT_TRUE(view->findChild<CrossFade*>()->isFading());
    turn();
    EXPECT_TRUE(isEditorShown());
    EXPECT_TRUE(editor().hasFocus());
    EXPECT_EQ(editor().toPlainText(), u"text"_s);
    EXPECT_EQ(child(u"editButton"_s).findChild<SymbolView*>()->symbol().name, u"eye"_s);
    click(u"editButton"_s);
    EXPECT_FALSE(overlay.isEditing);
    EXPECT_FALSE(isEditorShown());
    EXPECT_EQ(child(u"editButton"_s).findChild<SymbolView*>()->symbol().name, u"pencil"_s);
}

TEST_F(OverlayViewEditingTest, typing_eachKey_isWrittenThroughAtOnce)
{
    setNotes({u"text"_s});
    edit();
    QTest::keyClick(&editor(), Qt::Key_X);
    EXPECT_EQ(note(0).content, u"textx"_s);
    QTest::keyClick(&editor(), Qt::Key_Y);
    EXPECT_EQ(note(0).content, u"textxy"_s);
    EXPECT_TRUE(bytesOf(home.notes()).contains("textxy"));
}

/// Notes what the editor shows whenever it is painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(NoteEditor& editor)
        : editor(editor)
    {
        editor.viewport()->installEventFilter(this);
    }

    QString painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted = editor.toPlainText();
        return false;
    }

private:
    NoteEditor& editor;
};

TEST_F(OverlayViewEditingTest, typing_eachKey_isPaintedBeforeItIsWritten)
{
    setNotes({u"text"_s});
    edit();
    const PaintWatch watch(editor());
    QStringList paintedBefore;
    QObject::connect(&notes, &ObservableObject::objectWillChange, &watch, [&] {
        if (note(0).content != editor().toPlainText())
            paintedBefore.append(watch.painted);
    });
    QTest::keyClick(&editor(), Qt::Key_X);
    QTest::keyClick(&editor(), Qt::Key_Return);
    QTest::keyClick(&editor(), Qt::Key_Backspace);
    EXPECT_EQ(paintedBefore, (QStringList{u"textx"_s, u"textx\n"_s, u"textx"_s}));
}

TEST_F(OverlayViewEditingTest, typing_firstKey_dropsWhatTheReadingViewLaysOut)
{
    setNotes({u"line\n"_s.repeated(100)});
    textView().verticalScrollBar()->setValue(50);
    edit();
    EXPECT_FALSE(read().isEmpty());
    QTest::keyClicks(&editor(), u"xy"_s);
    EXPECT_TRUE(read().isEmpty());
    edit(false);
    EXPECT_TRUE(read().endsWith(u"line\nxy"_s));
    EXPECT_EQ(textView().verticalScrollBar()->value(), 50);
}

TEST_F(OverlayViewEditingTest, typing_thenReading_showsTheNewText)
{
    setNotes({u"text"_s});
    edit();
    QTest::keyClicks(&editor(), u" **more**"_s);
    click(u"editButton"_s);
    EXPECT_EQ(read(), u"text more"_s);
}

TEST_F(OverlayViewEditingTest, typing_whileFading_isNotHeldUp)
{
    setNotes({u"text"_s});
    click(u"editButton"_s);
    ASSERT_TRUE(view->findChild<CrossFade*>()->isFading());
    QTest::keyClick(&editor(), Qt::Key_X);
    EXPECT_EQ(note(0).content, u"textx"_s);
}

TEST_F(OverlayViewEditingTest, leavingTheEditor_withoutTyping_savesNothing)
{
    setNotes({u"text"_s});
    forgetStamps();
    click(u"editButton"_s);
    click(u"editButton"_s);
    EXPECT_FALSE(isStamped(0));
}

TEST_F(OverlayViewEditingTest, toggling_offAndOn_reloadsTheStoredNote)
{
    setNotes({u"stored"_s});
    edit();
    edit(false);
    notes.updateContent(note(0).id, u"stored elsewhere"_s);
    turn();
    EXPECT_EQ(view->editContent.text(), u"stored"_s);
    click(u"editButton"_s);
    EXPECT_EQ(view->editContent.text(), u"stored elsewhere"_s);
    EXPECT_EQ(editor().toPlainText(), u"stored elsewhere"_s);
}

TEST_F(OverlayViewEditingTest, editingFromOutside_buffer_keepsWhatItHeld)
{
    setNotes({u"stored"_s});
    notes.updateContent(note(0).id, u"stored elsewhere"_s);
    turn();
    overlay.quickOpen();
    turn();
    EXPECT_TRUE(isEditorShown());
    EXPECT_EQ(editor().toPlainText(), u"stored"_s);
    EXPECT_FALSE(view->findChild<CrossFade*>()->isFading());
}

TEST_F(OverlayViewEditingTest, quickOpen_anyFocus_givesTheEditorTheKeyboard)
{
    setNotes({u"text"_s});
    child(u"newButton"_s).setFocus(Qt::TabFocusReason);
    overlay.quickOpen();
    turn();
    EXPECT_TRUE(editor().hasFocus());
    child(u"newButton"_s).setFocus(Qt::TabFocusReason);
    overlay.quickOpen();
    turn();
    EXPECT_TRUE(editor().hasFocus());
}

TEST_F(OverlayViewEditingTest, quickOpen_windowNotActive_typingWorksOnceItIs)
{
    setNotes({u"text"_s});
    QWidget elsewhere;
    present(elsewhere);
    elsewhere.activateWindow();
    overlay.quickOpen();
    turn();
    window.activateWindow();
    turn();
    EXPECT_TRUE(editor().hasFocus());
}

TEST_F(OverlayViewEditingTest, switchingNotes_inTheEditor_writesTheNewNoteBackUnchanged)
{
    setNotes({u"first"_s, u"# second"_s});
    edit();
    forgetStamps();
    notes.selectNext();
    turn();
    EXPECT_EQ(editor().toPlainText(), u"# second"_s);
    EXPECT_EQ(note(1).content, u"# second"_s);
    EXPECT_EQ(note(1).title, u"second"_s);
    EXPECT_TRUE(isStamped(1));
    EXPECT_FALSE(isStamped(0));
    EXPECT_EQ(note(0).content, u"first"_s);
}

TEST_F(OverlayViewEditingTest, switchingNotes_byTheChevron_doesTheSame)
{
    setNotes({u"first"_s, u"second"_s});
    edit();
    forgetStamps();
    click(u"nextButton"_s);
    EXPECT_EQ(editor().toPlainText(), u"second"_s);
    EXPECT_TRUE(isStamped(1));
    EXPECT_FALSE(isStamped(0));
    EXPECT_TRUE(isEditorShown());
}

TEST_F(OverlayViewEditingTest, switchingNotes_whileReading_writesNothing)
{
    setNotes({u"first"_s, u"second"_s});
    forgetStamps();
    notes.selectNext();
    turn();
    click(u"nextButton"_s);
    EXPECT_FALSE(isStamped(0) || isStamped(1));
}

TEST_F(OverlayViewEditingTest, switchingNotes_ofEqualText_isNoChange)
{
    setNotes({u"same"_s, u"same"_s});
    edit();
    forgetStamps();
    notes.selectNext();
    turn();
    EXPECT_FALSE(isStamped(0) || isStamped(1));
}

TEST_F(OverlayViewEditingTest, undo_afterSwitchingNotes_neverBringsTheOtherNotesText)
{
    setNotes({u"same"_s, u"samex"_s});
    edit();
    QTest::keyClick(&editor(), Qt::Key_X);
    notes.selectNext();
    turn();
    QTest::keySequence(&editor(), QKeySequence::Undo);
    EXPECT_EQ(note(0).content, u"samex"_s);
    EXPECT_EQ(note(1).content, u"samex"_s);
}

TEST_F(OverlayViewEditingTest, typing_beforeTheSwitchIsSeen_goesToTheNoteThatIsSeen)
{
    setNotes({u"first"_s, u"second"_s});
    edit();
    notes.selectNext();
    QTest::keyClick(&editor(), Qt::Key_X);
    turn();
    EXPECT_EQ(note(0).content, u"firstx"_s);
    EXPECT_EQ(note(1).content, u"second"_s);
    EXPECT_EQ(editor().toPlainText(), u"second"_s);
}

TEST_F(OverlayViewEditingTest, newNote_inTheEditor_leavesTheOldOneAsItWas)
{
    setNotes({u"old\r\ntext\u00A0"_s});
    edit();
    click(u"newButton"_s);
    QTest::keyClicks(&editor(), u"!"_s);
    EXPECT_EQ(note(1).content, u"old\r\ntext\u00A0"_s);
    EXPECT_EQ(note(0).content, u"# New Note\n\nStart typing...!"_s);
}

TEST_F(OverlayViewEditingTest, newNoteAndQuickOpen_inOneTurn_openTheNewNote)
{
    setNotes({u"old"_s});
    notes.createNote();
    overlay.quickOpen();
    turn();
    EXPECT_EQ(editor().toPlainText(), note(0).content);
    QTest::keyClicks(&editor(), u"!"_s);
    EXPECT_EQ(note(0).content, u"# New Note\n\nStart typing...!"_s);
    EXPECT_EQ(note(1).content, u"old"_s);
}

TEST_F(OverlayViewEditingTest, switchingModeAndNote_inOneTurn_touchesNeitherText)
{
    setNotes({u"first"_s, u"second"_s});
    edit();
    forgetStamps();
    overlay.isEditing = false;
    notes.selectNext();
    view->syncEditContent();
    EXPECT_FALSE(isEditorShown());
    turn();
    EXPECT_EQ(read(), u"second"_s);
    EXPECT_FALSE(isStamped(0) || isStamped(1));
}

TEST_F(OverlayViewEditingTest, deletingTheEditedNote_typing_goesToTheNextOne)
{
    setNotes({u"first"_s, u"second"_s});
    edit();
    notes.deleteNote(note(0));
    QTest::keyClick(&editor(), Qt::Key_X);
    turn();
    ASSERT_EQ(notes.notes->size(), 1U);
    EXPECT_EQ(note(0).content, u"second"_s);
    QTest::keyClick(&editor(), Qt::Key_X);
    EXPECT_EQ(note(0).content, u"secondx"_s);
}

TEST_F(OverlayViewEditingTest, danglingSelection_typing_changesNoNote)
{
    setNotes({u"first"_s});
    notes.selectedNoteID = QUuid::createUuid();
    edit();
    QTest::keyClicks(&editor(), u"lost"_s);
    EXPECT_EQ(view->editContent.text(), u"lost"_s);
    EXPECT_EQ(note(0).content, u"first"_s);
}

TEST_F(OverlayViewEditingTest, unusualText_editedAndLeft_keepsItsBytes)
{
    const QString text = u"a\r\nb\u2029c\u00A0d\u2028e\uFFFC\rf"_s;
    setNotes({text});
    edit();
    QTest::keyClicks(&editor(), u"xy"_s);
    QTest::keyClick(&editor(), Qt::Key_Backspace);
    EXPECT_EQ(note(0).content, text + u"x"_s);
    QTest::keyClick(&editor(), Qt::Key_Backspace);
    EXPECT_EQ(note(0).content, text);
}

TEST_F(OverlayViewEditingTest, longNote_opened_showsItsTop)
{
    setNotes({u"line\n"_s.repeated(100)});
    edit();
    EXPECT_EQ(editor().verticalScrollBar()->value(), 0);
}

} // namespace
} // namespace sablequill
