// SPDX-License-Identifier: MIT
#include "NotesListModel.h"

#include "AppFixture.h"
#include "Widgets.h"

#include <QSignalSpy>

namespace sablequill {
namespace {

class NotesListModelTest : public AppFixture {
protected:
    NotesListModelTest()
    {
        fill(4);
        inserted.clear();
        removed.clear();
    }

    void fill(int count)
    {
        makeNotes(count);
        turn();
    }

    QVariant data(int row, int role) { return model.data(model.index(row), role); }
    QStringList titles()
    {
        QStringList list;
        for (int row = 0; row < model.rowCount(); ++row)
            list.append(data(row, Qt::DisplayRole).toString());
        return list;
    }
    /// The rows of the one insertion or removal.
    static std::vector<int> rowsOf(const QSignalSpy& changes)
    {
        EXPECT_EQ(changes.count(), 1);
        if (changes.isEmpty())
            return {};
        return {changes[0].at(1).toInt(), changes[0].at(2).toInt()};
    }

    NotesManager& notes = *appState.notesManager;
    NotesListModel model{notes};
    QSignalSpy inserted{&model, &NotesListModel::rowsInserted};
    QSignalSpy removed{&model, &NotesListModel::rowsRemoved};
    QSignalSpy resets{&model, &NotesListModel::modelReset};
};

using Rows = std::vector<int>;

TEST_F(NotesListModelTest, data_eachRole_isTheNotes)
{
    EXPECT_EQ(data(1, Qt::DisplayRole), QStringLiteral("Note 2"));
    EXPECT_EQ(data(1, NotesListModel::previewRole), QStringLiteral("Note 2 Second line of 2"));
    EXPECT_EQ(data(1, NotesListModel::isSelectedRole), false);
    EXPECT_EQ(data(0, NotesListModel::isSelectedRole), true);
    EXPECT_EQ(data(1, Qt::AccessibleTextRole), QStringLiteral("Note 2"));
    EXPECT_FALSE(data(1, Qt::DecorationRole).isValid());
}

TEST_F(NotesListModelTest, data_screenReader_hearsThePreviewAndTheSelection)
{
    EXPECT_EQ(data(0, Qt::AccessibleDescriptionRole),
        QStringLiteral("Shown in the overlay. Note 1 Second line of 1"));
    EXPECT_EQ(data(1, Qt::AccessibleDescriptionRole), QStringLiteral("Note 2 Second line of 2"));
}

TEST_F(NotesListModelTest, createNote_always_insertsTheFirstRow)
{
    notes.createNote();
    turn();
    EXPECT_EQ(rowsOf(inserted), (Rows{0, 0}));
    EXPECT_EQ(removed.count(), 0);
    EXPECT_EQ(titles().first(), QStringLiteral("New Note"));
    EXPECT_EQ(model.rowCount(), 5);
}

TEST_F(NotesListModelTest, deleteNote_anyRow_removesThatRow)
{
    notes.deleteNote(note(2));
    turn();
    EXPECT_EQ(rowsOf(removed), (Rows{2, 2}));
    EXPECT_EQ(inserted.count(), 0);
    EXPECT_EQ(titles(),
        QStringList(
            {QStringLiteral("Note 1"), QStringLiteral("Note 2"), QStringLiteral("Note 4")}));
}

TEST_F(NotesListModelTest, updateContent_always_changesDataOnly)
{
    QSignalSpy changes(&model, &NotesListModel::dataChanged);
    notes.updateContent(note(3).id, QStringLiteral("Other"));
    turn();
    EXPECT_EQ(changes.count(), 1);
    EXPECT_EQ(inserted.count() + removed.count(), 0);
    EXPECT_EQ(titles().last(), QStringLiteral("Other"));
}

TEST_F(NotesListModelTest, changes_manyInOneTurn_areFollowedTogether)
{
    notes.deleteNote(note(0));
    notes.deleteNote(note(2));
    notes.createNote();
    turn();
    EXPECT_EQ(titles(),
        QStringList(
            {QStringLiteral("New Note"), QStringLiteral("Note 2"), QStringLiteral("Note 3")}));
}

TEST_F(NotesListModelTest, list_replacedOrEmptied_isFollowedWithoutAReset)
{
    fill(7);
    EXPECT_EQ(model.rowCount(), 7);
    fill(0);
    EXPECT_EQ(model.rowCount(), 0);
    fill(1);
    EXPECT_EQ(titles(), QStringList{QStringLiteral("Note 1")});
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(NotesListModelTest, note_listChangedUnderTheRow_isNoneUntilItFollows)
{
    notes.deleteNote(note(0));
    EXPECT_EQ(model.note(model.index(0)), nullptr);
    EXPECT_FALSE(data(0, Qt::DisplayRole).isValid());
    turn();
    EXPECT_EQ(model.note(model.index(0))->title, QStringLiteral("Note 2"));
}

TEST_F(NotesListModelTest, note_noSuchRow_isNone)
{
    EXPECT_EQ(model.note({}), nullptr);
    EXPECT_EQ(model.note(model.index(4)), nullptr);
}

} // namespace
} // namespace sablequill
