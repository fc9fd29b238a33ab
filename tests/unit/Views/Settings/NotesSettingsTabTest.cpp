// SPDX-License-Identifier: MIT
#include "NotesSettingsTab.h"

#include "Accessibility.h"
#include "AppFixture.h"
#include "Ink.h"
#include "NoteRowDelegate.h"
#include "NotesListView.h"
#include "Symbol.h"
#include "TextStyle.h"
#include "Widgets.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTest>

namespace sablequill {
namespace {

/// Counts the rows that it draws.
class CountingDelegate : public NoteRowDelegate {
public:
    using NoteRowDelegate::NoteRowDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override
    {
        ++paints;
        NoteRowDelegate::paint(painter, option, index);
    }

    mutable int paints = 0;
};

class NotesSettingsTabTest : public AppFixture {
protected:
    NotesSettingsTabTest()
    {
        tab.setPalette(paletteFor(Surroundings::light));
        tab.resize(520, 340);
        fill(3);
        present(tab);
        tab.activateWindow();
    }

    ~NotesSettingsTabTest() override
    {
        if (QMenu* open = menu())
            open->close();
    }

    void fill(int count)
    {
        makeNotes(count);
        // One turn for the model to follow, and one for the rows to be laid out.
        turn();
        turn();
    }

    QModelIndex index(int row) { return list.model()->index(row, 0); }
    void click(int row)
    {
        QTest::mouseClick(
            list.viewport(), Qt::LeftButton, {}, list.visualRect(index(row)).center());
    }
    QImage rowPicture(int row)
    {
        turn();
        return picture(*list.viewport()).copy(list.visualRect(index(row)));
    }

    /// A list of two notes, the second of which is not the selected one.
    QImage pictureOfSecond(const QString& title, const QString& content)
    {
        makeNotes(2);
        notes.notes.modify([&](auto& list) {
            list[1].title = title;
            list[1].content = content;
        });
        turn();
        return rowPicture(1);
    }

    static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
    void openMenuByMouse(int row) { openMenuByMouse(list.visualRect(index(row)).center()); }
    void openMenuByMouse(QPoint at)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, list.viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(list.viewport(), &event);
    }
    /// What the desktop sends for the Menu key.
    void openMenuByKey()
    {
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
        QCoreApplication::sendEvent(&list, &event);
    }
    void chooseDelete()
    {
        ASSERT_TRUE(menu());
        ASSERT_EQ(menu()->actions().size(), 1);
        EXPECT_EQ(menu()->actions().constFirst()->text(), QStringLiteral("Delete"));
        QTest::keyClick(menu(), Qt::Key_Down);
        QTest::keyClick(menu(), Qt::Key_Return);
        turn();
    }

    NotesManager& notes = *appState.notesManager;
    NotesSettingsTab tab{notes};
    NotesListView& list = found<NotesListView>(tab, QStringLiteral("notesList"));
};

// The tree

TEST_F(NotesSettingsTabTest, header_always_isPaddedBySixteen)
{
    EXPECT_EQ(
        textsIn(tab), QStringList({QStringLiteral("Your Notes"), QStringLiteral("New Note")}));
    const QWidget& button = found(tab, QStringLiteral("New Note"));
    const QRect frame = frameIn(tab, button);
    EXPECT_EQ(frame.right(), 520 - 16 - 1);
    EXPECT_EQ(frame.top(), 16);
    EXPECT_EQ(button.font().pixelSize(), 11);
    EXPECT_EQ(
        frameIn(tab, list), QRect(0, frame.bottom() + 1 + 16, 520, 340 - frame.height() - 32));
}

TEST_F(NotesSettingsTabTest, notes_none_onlyTheHeaderShows)
{
    fill(0);
    EXPECT_EQ(list.model()->rowCount(), 0);
    EXPECT_TRUE(found(tab, QStringLiteral("New Note")).isVisible());
    openMenuByKey();
    EXPECT_FALSE(menu());
}

TEST_F(NotesSettingsTabTest, rows_height_isTwoLinesThePaddingsAndTheDivider)
{
    const int lines =
        QFontMetrics(font({13, QFont::Medium})).height() + QFontMetrics(font({10})).height();
    EXPECT_EQ(list.visualRect(index(0)), QRect(0, 0, 520, 8 + lines + 2 + 8 + 1));
    EXPECT_EQ(list.visualRect(index(1)).top(), list.visualRect(index(0)).bottom() + 1);
}

TEST_F(NotesSettingsTabTest, rows_paint_wordsBeginAtTwelve)
{
    const QImage image = rowPicture(1);
    int leftmost = image.width();
    for (int y = 0; y < image.height() - 1; ++y)
        for (int x = 0; x < leftmost; ++x)
            if (image.pixelColor(x, y).alpha() > 40)
                leftmost = x;
    EXPECT_GE(leftmost, 12);
    EXPECT_LE(leftmost, 14);
    EXPECT_EQ(image.pixelColor(300, image.height() - 1).rgba(),
        color({InkRole::divider}, Surroundings::light).rgba());
}

TEST_F(NotesSettingsTabTest, checkmark_selection_isOnItsRowOnly)
{
    const auto accent = [&](int row) {
        const QImage image = rowPicture(row);
        int count = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = image.width() - 40; x < image.width(); ++x)
                count += image.pixelColor(x, y) == color({InkRole::accent}, Surroundings::light);
        return count > 20;
    };
    EXPECT_TRUE(accent(0));
    EXPECT_FALSE(accent(1));
    notes.selectNext();
    EXPECT_FALSE(accent(0));
    EXPECT_TRUE(accent(1));
}

TEST_F(NotesSettingsTabTest, rows_longTexts_endAtThePaddingOrBeforeTheCheckmark)
{
    const auto isClear = [](const QImage& image, int from, int to) {
        for (int x = from; x < to; ++x)
            for (int y = 0; y < image.height() - 1; ++y)
                if (image.pixelColor(x, y).alpha() > 40)
                    return false;
        return true;
    };
    const int end = 520 - 12;
    const int symbol = end - symbolExtent(13);
    const QImage unselected = pictureOfSecond(QString(300, u'i'), QString(80, u'W'));
    EXPECT_TRUE(isClear(unselected, end, 520));
    EXPECT_FALSE(isClear(unselected, symbol - 12, symbol));
    click(1);
    const QImage selected = rowPicture(1);
    EXPECT_TRUE(isClear(selected, end, 520));
    EXPECT_TRUE(isClear(selected, symbol - 12, symbol));
    EXPECT_FALSE(isClear(selected, symbol - 24, symbol - 12));
}

TEST_F(NotesSettingsTabTest, rows_spacesInTexts_areDrawnAsTheyAre)
{
    const QString plain = QStringLiteral("One two");
    const QImage reference = pictureOfSecond(plain, plain);
    EXPECT_NE(pictureOfSecond(QStringLiteral("One    two"), plain), reference);
    EXPECT_NE(pictureOfSecond(QStringLiteral("  One two"), plain), reference);
    EXPECT_NE(pictureOfSecond(plain, QStringLiteral("One    two")), reference);
}

TEST_F(NotesSettingsTabTest, rows_whatBreaksALine_isDrawnAsASpace)
{
    const QString plain = QStringLiteral("One two");
    const QImage reference = pictureOfSecond(plain, plain);
    for (const char16_t character :
        {u'\n', u'\r', u'\t', u'\v', u'\f', u'\0', u'\x85', u'\x9c', u'\x2028', u'\x2029'}) {
        QString text = plain;
        text[3] = character;
        EXPECT_EQ(pictureOfSecond(text, text), reference) << static_cast<int>(character);
    }
}

TEST_F(NotesSettingsTabTest, rows_pointerOverOne_answers)
{
    const QImage before = rowPicture(1);
    QTest::mouseMove(list.viewport(), list.visualRect(index(1)).center());
    EXPECT_TRUE(waitFor([&] { return rowPicture(1) != before; }));
}

// Actions

TEST_F(NotesSettingsTabTest, newNote_click_isOnTopAndSelected)
{
    QTest::mouseClick(&found(tab, QStringLiteral("New Note")), Qt::LeftButton);
    turn();
    EXPECT_EQ(notes.notes->size(), 4U);
    EXPECT_EQ(selectedNote(), note(0).id);
    EXPECT_EQ(index(0).data(), QStringLiteral("New Note"));
    EXPECT_FALSE(appState.overlayManager->isEditing);
}

TEST_F(NotesSettingsTabTest, row_click_selectsTheNote)
{
    click(2);
    EXPECT_EQ(selectedNote(), note(2).id);
    for (const QPoint corner : {QPoint(1, 1), list.visualRect(index(1)).bottomRight()}) {
        notes.selectedNoteID = std::nullopt;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, corner);
        EXPECT_TRUE(selectedNote());
    }
}

TEST_F(NotesSettingsTabTest, row_otherButtons_selectNothing)
{
    QTest::mouseClick(list.viewport(), Qt::RightButton, {}, list.visualRect(index(2)).center());
    EXPECT_EQ(selectedNote(), note(0).id);
}

TEST_F(NotesSettingsTabTest, click_belowTheRows_selectsNothing)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, QPoint(200, 250));
    EXPECT_EQ(selectedNote(), note(0).id);
    openMenuByMouse(QPoint(200, 250));
    EXPECT_FALSE(menu());
}

// Context menu

TEST_F(NotesSettingsTabTest, contextMenu_mouse_deletesThatNote)
{
    const QUuid id = note(1).id;
    openMenuByMouse(1);
    chooseDelete();
    ASSERT_EQ(notes.notes->size(), 2U);
    EXPECT_NE(note(1).id, id);
    EXPECT_EQ(list.model()->rowCount(), 2);
}

TEST_F(NotesSettingsTabTest, contextMenu_selectedNote_checkmarkMovesToTheFirst)
{
    click(2);
    openMenuByMouse(2);
    chooseDelete();
    EXPECT_EQ(selectedNote(), note(0).id);
}

TEST_F(NotesSettingsTabTest, contextMenu_lastNote_isFollowedByANewOne)
{
    fill(1);
    openMenuByMouse(0);
    chooseDelete();
    ASSERT_EQ(notes.notes->size(), 1U);
    EXPECT_EQ(note(0).title, QStringLiteral("New Note"));
    EXPECT_EQ(selectedNote(), note(0).id);
}

TEST_F(NotesSettingsTabTest, contextMenu_menuKey_deletesTheCurrentNote)
{
    list.setCurrentIndex(index(1));
    openMenuByKey();
    chooseDelete();
    EXPECT_EQ(note(1).title, QStringLiteral("Note 3"));
}

TEST_F(NotesSettingsTabTest, contextMenu_shiftF10_deletesTheCurrentNote)
{
    list.setFocus();
    list.setCurrentIndex(index(1));
    QTest::keyClick(&list, Qt::Key_F10, Qt::ShiftModifier);
    chooseDelete();
    EXPECT_EQ(note(1).title, QStringLiteral("Note 3"));
}

TEST_F(NotesSettingsTabTest, contextMenu_keyAndCurrentRowOutOfSight_opensAtTheRow)
{
    fill(200);
    list.setCurrentIndex(index(1));
    list.verticalScrollBar()->setValue(3000);
    openMenuByKey();
    ASSERT_TRUE(menu());
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(index(1))));
}

TEST_F(NotesSettingsTabTest, contextMenu_escape_deletesNothing)
{
    openMenuByMouse(1);
    QTest::keyClick(menu(), Qt::Key_Escape);
    EXPECT_FALSE(menu());
    EXPECT_EQ(notes.notes->size(), 3U);
}

TEST_F(NotesSettingsTabTest, contextMenu_listChangedWhileOpen_deletesTheNoteItWasOpenedFor)
{
    const QUuid id = note(1).id;
    openMenuByMouse(1);
    notes.createNote();
    turn();
    chooseDelete();
    ASSERT_EQ(notes.notes->size(), 3U);
    for (int i = 0; i < 3; ++i)
        EXPECT_NE(note(i).id, id);
}

TEST_F(NotesSettingsTabTest, contextMenu_noteGoneWhileOpen_deletesNothingElse)
{
    openMenuByMouse(1);
    notes.deleteNote(note(1));
    turn();
    chooseDelete();
    EXPECT_EQ(notes.notes->size(), 2U);
}

// Keyboard

TEST_F(NotesSettingsTabTest, tabKey_buttonThenList_arrowsAndReturnSelect)
{
    leaveControls(tab);
    EXPECT_EQ(focusAfterTab(tab), &found(tab, QStringLiteral("New Note")));
    EXPECT_EQ(focusAfterTab(tab), &list);
    EXPECT_EQ(list.currentIndex().row(), 0);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(selectedNote(), note(0).id);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(selectedNote(), note(1).id);
    QTest::keyClick(&list, Qt::Key_Down);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(selectedNote(), note(2).id);
}

TEST_F(NotesSettingsTabTest, tabKey_list_leavesIt)
{
    leaveControls(tab);
    focusAfterTab(tab, 2);
    EXPECT_NE(focusAfterTab(tab), &list);
}

TEST_F(NotesSettingsTabTest, focus_byKey_isSeenOnTheRow)
{
    const QImage before = rowPicture(0);
    leaveControls(tab);
    focusAfterTab(tab, 2);
    EXPECT_NE(rowPicture(0), before);
}

// Many notes

TEST_F(NotesSettingsTabTest, tenThousandNotes_show_drawsOnlyTheRowsInSight)
{
    auto* delegate = new CountingDelegate(&list);
    list.setItemDelegate(delegate);
    fill(10'000);
    turn();
    const int rowHeight = list.visualRect(index(0)).height();
    const int rowsInSight = list.viewport()->height() / rowHeight + 2;
    EXPECT_EQ(list.verticalScrollBar()->maximum(), 10'000 * rowHeight - list.viewport()->height());
    delegate->paints = 0;
    list.verticalScrollBar()->setValue(200'000);
    list.viewport()->repaint();
    EXPECT_GT(delegate->paints, 2);
    EXPECT_LE(delegate->paints, 2 * rowsInSight);
}

TEST_F(NotesSettingsTabTest, scrollPosition_changesElsewhere_stays)
{
    fill(10'000);
    list.verticalScrollBar()->setValue(200'000);
    const auto position = [&] {
        turn();
        turn();
        return list.verticalScrollBar()->value();
    };
    notes.updateContent(note(3).id, QStringLiteral("Other"));
    EXPECT_EQ(position(), 200'000);
    notes.createNote();
    EXPECT_EQ(position(), 200'000);
    notes.deleteNote(note(0));
    EXPECT_EQ(position(), 200'000);
    notes.deleteNote(note(9'000));
    EXPECT_EQ(position(), 200'000);
    notes.selectNext();
    EXPECT_EQ(position(), 200'000);
}

TEST_F(NotesSettingsTabTest, scrollPosition_currentRowOutOfSightDeleted_stays)
{
    fill(200);
    click(1);
    list.verticalScrollBar()->setValue(3'000);
    notes.deleteNote(note(1));
    turn();
    turn();
    EXPECT_EQ(list.verticalScrollBar()->value(), 3'000);
}

TEST_F(NotesSettingsTabTest, scrollPosition_listShorterThanBefore_endsAtItsEnd)
{
    fill(200);
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
    fill(20);
    turn();
    EXPECT_EQ(list.verticalScrollBar()->value(), list.verticalScrollBar()->maximum());
    EXPECT_EQ(list.visualRect(index(19)).bottom(), list.viewport()->height() - 1);
}

// Screen readers

TEST_F(NotesSettingsTabTest, accessible_rows_tellTitleAndPreview)
{
    QAccessibleInterface& rows = accessible(list);
    EXPECT_EQ(rows.text(QAccessible::Name), QStringLiteral("Notes"));
    ASSERT_EQ(rows.childCount(), 3);
    EXPECT_EQ(rows.child(1)->text(QAccessible::Name), QStringLiteral("Note 2"));
    EXPECT_EQ(
        rows.child(1)->text(QAccessible::Description), QStringLiteral("Note 2 Second line of 2"));
    EXPECT_EQ(rows.child(0)->text(QAccessible::Description),
        QStringLiteral("Shown in the overlay. Note 1 Second line of 1"));
}

TEST_F(NotesSettingsTabTest, accessible_rowPressed_selectsTheNote)
{
    QAccessibleActionInterface* actions = accessible(list).child(2)->actionInterface();
    ASSERT_TRUE(actions);
    actions->doAction(actions->actionNames().value(0));
    turn();
    EXPECT_EQ(notes.selectedNoteID.get(), notes.notes.get()[2].id);
    EXPECT_TRUE(accessible(list).child(2)->state().selected);
    EXPECT_FALSE(accessible(list).child(0)->state().selected);
}

TEST_F(NotesSettingsTabTest, accessible_selectionChangesElsewhere_isTold)
{
    EXPECT_TRUE(accessible(list).child(0)->state().selected);
    notes.selectNext();
    turn();
    EXPECT_TRUE(accessible(list).child(1)->state().selected);
    EXPECT_FALSE(accessible(list).child(0)->state().selected);
}

} // namespace
} // namespace sablequill
