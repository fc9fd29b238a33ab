// SPDX-License-Identifier: MIT
#include "EditHistory.h"

#include "Widgets.h"

#include <gtest/gtest.h>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

class EditHistoryTest : public testing::Test {
protected:
    void type(const QString& typed)
    {
        for (const QChar character : typed)
            make({text.size(), {}, character});
    }

    void make(const TextEdit& edit)
    {
        change(edit);
        history.record(edit);
    }

    void undo() { change(history.undo().value_or(TextEdit{})); }
    void redo() { change(history.redo().value_or(TextEdit{})); }

    void change(const TextEdit& edit)
    {
        EXPECT_EQ(text.mid(edit.position, edit.removed.size()), edit.removed);
        text.replace(edit.position, edit.removed.size(), edit.inserted);
    }

    EditHistory history;
    QString text;
};

TEST_F(EditHistoryTest, empty_nothingToUndoOrRedo)
{
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
    EXPECT_FALSE(history.undo().has_value());
    EXPECT_FALSE(history.redo().has_value());
}

TEST_F(EditHistoryTest, undo_typedWords_takesBackOneAtATime)
{
    type(u"one two\nthree"_s);
    for (const QString& expected : {u"one two\n"_s, u"one two"_s, u"one "_s, QString()}) {
        undo();
        EXPECT_EQ(text, expected);
    }
    EXPECT_FALSE(history.canUndo());
}

TEST_F(EditHistoryTest, redo_whatWasTakenBack_comesAgain)
{
    type(u"one two"_s);
    undo();
    undo();
    redo();
    EXPECT_EQ(text, u"one "_s);
    redo();
    EXPECT_EQ(text, u"one two"_s);
    EXPECT_FALSE(history.canRedo());
}

TEST_F(EditHistoryTest, record_afterUndo_forgetsTheRest)
{
    type(u"one two"_s);
    undo();
    type(u"x"_s);
    EXPECT_FALSE(history.canRedo());
    EXPECT_EQ(text, u"one x"_s);
    undo();
    EXPECT_EQ(text, u"one "_s);
}

TEST_F(EditHistoryTest, undo_backspaces_comeBackTogether)
{
    text = u"abc"_s;
    make({2, u"c"_s, {}});
    make({1, u"b"_s, {}});
    undo();
    EXPECT_EQ(text, u"abc"_s);
    EXPECT_FALSE(history.canUndo());
}

TEST_F(EditHistoryTest, undo_deletesForward_comeBackTogether)
{
    text = u"abc"_s;
    make({0, u"a"_s, {}});
    make({0, u"b"_s, {}});
    undo();
    EXPECT_EQ(text, u"abc"_s);
}

TEST_F(EditHistoryTest, undo_typingElsewhere_isAnotherEdit)
{
    type(u"ab"_s);
    make({0, {}, u"x"_s});
    undo();
    EXPECT_EQ(text, u"ab"_s);
}

TEST_F(EditHistoryTest, undo_typingBehindAPaste_leavesThePaste)
{
    make({0, {}, u"pasted"_s});
    type(u"x"_s);
    undo();
    EXPECT_EQ(text, u"pasted"_s);
}

TEST_F(EditHistoryTest, record_veryManyEdits_forgetsTheOldest)
{
    for (std::size_t i = 0; i <= EditHistory::mostEdits; ++i)
        make({0, {}, u"pasted"_s});
    for (std::size_t i = 0; i < EditHistory::mostEdits; ++i)
        undo();
    EXPECT_FALSE(history.canUndo());
    EXPECT_EQ(text, u"pasted"_s);
}

TEST_F(EditHistoryTest, clear_afterEdits_forgetsAll)
{
    type(u"one two"_s);
    undo();
    history.clear();
    EXPECT_FALSE(history.canUndo());
    EXPECT_FALSE(history.canRedo());
}

} // namespace
} // namespace sablequill
