// SPDX-License-Identifier: MIT
#include "SettingsWindow.h"

namespace sablequill {
namespace {

const QString notesTab = QStringLiteral("Notes");

class NotesTabTest : public SettingsWindowTest {
protected:
    /// Notes of two lines, titled "Note 1" and so on.
    void writeManyNotes(int count)
    {
        QJsonArray notes;
        for (int number = 1; number <= count; ++number) {
            const auto title = QStringLiteral("Note %1").arg(number);
            notes.append(noteRecord(number, title, title + QStringLiteral("\nSecond line")));
        }
        user.writeNotes(notes);
    }

    /// A row's place once it is in the list with that title; fails the test when it is not.
    Area rowPlace(int index, const QString& title) const
    {
        const Area list = place(notesTab, Role::list);
        Area area;
        EXPECT_TRUE(waitUntil([&] {
            const auto row = noteRow(index);
            area = row ? row->area() : Area{};
            return row && row->name() == title && area.height > 0 && area.width == list.width;
        })) << "row "
            << index << " is not '" << title.toStdString() << '\'';
        return area;
    }

    void clickRow(int index, const QString& title) { mouse.click(rowPlace(index, title).center()); }

    /// The window of the context menu, which assistive programs are only told of as the keyboard
    /// goes into it: the one window of the program that is not managed and has no role.
    std::optional<xcb_window_t> menu() const
    {
        for (const auto window : stackingOrder(x)) {
            const auto name = x.textProperty(window, "WM_CLASS");
            if (name.find("Sablequill") != std::string::npos && isViewable(x, window)
                && x.textProperty(window, "WM_WINDOW_ROLE").empty())
                return window;
        }
        return std::nullopt;
    }

    void expectMenu() const
    {
        EXPECT_TRUE(waitUntil([&] { return menu().has_value(); })) << "no menu";
    }

    void openMenuOfRow(int index, const QString& title)
    {
        mouse.clickForMenu(rowPlace(index, title).center());
        expectMenu();
    }

    /// "Delete" is the one item of the menu.
    void clickDelete()
    {
        const auto window = menu();
        ASSERT_TRUE(window);
        mouse.click(areaOf(x, *window)->center());
        EXPECT_TRUE(waitUntil([&] { return !menu(); }));
    }

    void expectTitles(const QStringList& expected) const
    {
        const auto titles = [this] {
            QStringList all;
            for (const auto& note : user.readNotes().value_or(QJsonArray()))
                all.append(note[u"title"].toString());
            return all;
        };
        EXPECT_TRUE(waitUntil([&] { return titles() == expected; }))
            << titles().join(u", ").toStdString();
    }

    void expectSelected(int index) const
    {
        EXPECT_TRUE(waitUntil([&] {
            const auto row = noteRow(index);
            return row && row->is(AccessibleState::selected)
                && row->description().startsWith(u"Shown in the overlay.");
        })) << "row "
            << index;
    }

    const QString first = QStringLiteral("First");
    const QString second = QStringLiteral("Zweiter — größer");
    const QString third = QStringLiteral("Third");
};

TEST_P(NotesTabTest, row_clicked_isShownInTheOverlay)
{
    openTab(notesTab);
    expectSelected(0);
    clickRow(2, third);
    expectSelected(2);
    expectShown(QStringLiteral("3 / 3"), Role::label);
    EXPECT_TRUE(overlay.isShown());
    EXPECT_FALSE(noteRow(0)->is(AccessibleState::selected));
    expectTitles({first, second, third});
    endProgram();
}

TEST_P(NotesTabTest, newNote_clicked_isFirstAndSelected)
{
    openTab(notesTab);
    expectGone(QStringLiteral("Quit Sablequill"), Role::button);
    click(QStringLiteral("New Note"));
    expectTitles({QStringLiteral("New Note"), first, second, third});
    expectSelected(0);
    expectShown(QStringLiteral("1 / 4"), Role::label);
    endProgram();
}

TEST_P(NotesTabTest, contextMenu_oneItem_isInTheProgramsOwnStyle)
{
    constexpr int itemHeight = 24;
    constexpr int padding = 5;
    openTab(notesTab);
    openMenuOfRow(0, first);
    EXPECT_EQ(areaOf(x, *menu())->height, itemHeight + 2 * padding);
    keyboard.tap(KeyCode::escape);
    EXPECT_TRUE(waitUntil([&] { return !menu(); }));
    endProgram();
}

TEST_P(NotesTabTest, contextMenu_rightClick_deletesThatNoteAlone)
{
    openTab(notesTab);
    openMenuOfRow(2, third);
    keyboard.tap(KeyCode::escape);
    EXPECT_TRUE(waitUntil([&] { return !menu(); }));
    openMenuOfRow(1, second);
    clickDelete();
    expectTitles({first, third});
    expectSelected(0);
    expectShown(QStringLiteral("1 / 2"), Role::label);
    endProgram();
}

TEST_P(NotesTabTest, list_byKeysAlone_selectsAndDeletes)
{
    openTab(notesTab);
    tabTo(QStringLiteral("New Note"));
    keyboard.tap(KeyCode::tab);
    EXPECT_TRUE(waitUntil([&] {
        const auto list = named(notesTab, Role::list);
        return list && list->is(AccessibleState::focused);
    }));
    keyboard.tap(KeyCode::end);
    keyboard.tap(KeyCode::space);
    expectSelected(2);
    keyboard.tap(KeyCode::up);
    keyboard.tap(KeyCode::returnKey);
    expectSelected(1);

    keyboard.tap(KeyCode::menu);
    expectMenu();
    keyboard.tap(KeyCode::down);
    keyboard.tap(KeyCode::returnKey);
    expectTitles({first, third});
    expectSelected(0);
    EXPECT_TRUE(waitUntil([&] { return !menu(); }));

    keyboard.tap(KeyCode::end);
    keyboard.chord({KeyCode::leftShift}, KeyCode::f10);
    expectMenu();
    keyboard.tap(KeyCode::down);
    keyboard.tap(KeyCode::returnKey);
    expectTitles({first});
    endProgram();
}

TEST_P(NotesTabTest, contextMenu_noteIsEditedInTheOverlay_theFirstNoteTakesItsPlace)
{
    const QString editor = QStringLiteral("Note text");
    openTab(notesTab);
    clickRow(1, second);
    expectSelected(1);
    mouse.click(overlay.editButton());
    expectShown(editor, Role::text);
    keyboard.chord({KeyCode::leftControl}, KeyCode::a);
    keyboard.type("Edited");
    expectTitles({first, QStringLiteral("Edited"), third});

    openMenuOfRow(1, QStringLiteral("Edited"));
    clickDelete();
    expectTitles({first, third});
    expectSelected(0);
    EXPECT_TRUE(waitUntil([&] {
        const auto text = named(editor, Role::text);
        return text && text->text() == u"# First\n\nOne short line.";
    }));
    mouse.click(overlay.contentBackground());
    ASSERT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    keyboard.chord({KeyCode::leftControl}, KeyCode::end);
    keyboard.type("!");
    expectSaved(0, QStringLiteral("# First\n\nOne short line.!"));
    expectTitles({first, third});
    endProgram();
}

TEST_P(NotesTabTest, contextMenu_lastNote_isFollowedByANewOne)
{
    writeManyNotes(1);
    openTab(notesTab);
    openMenuOfRow(0, QStringLiteral("Note 1"));
    clickDelete();
    expectTitles({QStringLiteral("New Note")});
    expectSelected(0);
    expectShown(QStringLiteral("1 / 1"), Role::label);
    endProgram();
}

TEST_P(NotesTabTest, scrollPosition_noteChangesInTheOverlay_stays)
{
    writeManyNotes(60);
    openTab(notesTab);
    const QString farTitle = QStringLiteral("Note 30");
    const Area list = place(notesTab, Role::list);
    const Area before = rowPlace(29, farTitle);
    mouse.turnWheel(list.center(), -5);
    ASSERT_TRUE(waitUntil([&] { return noteRow(29)->area().y < before.y; }));
    Area scrolled;
    ASSERT_TRUE(waitUntil([&] {
        scrolled = noteRow(29)->area();
        return holdsFor([&] { return noteRow(29)->area() == scrolled; }, Milliseconds(150));
    }));

    quickOpen();
    retype("Changed");
    expectSaved(0, QStringLiteral("Changed"));
    EXPECT_TRUE(waitUntil([&] { return noteRow(0)->name() == u"Changed"; }));
    EXPECT_EQ(noteRow(29)->area(), scrolled);
    EXPECT_EQ(noteRow(29)->name(), farTitle);
    endProgram();
}

TEST_P(NotesTabTest, tenThousandNotes_scrolledFromEndToEnd_costsLessThanTheStart)
{
    constexpr int count = 10000;
    writeManyNotes(count);
    openTab(notesTab);
    const Area list = place(notesTab, Role::list);
    const auto isInSight = [&](int index) {
        const auto row = noteRow(index);
        const Area area = row ? row->area() : Area{};
        return area.height > 0 && area.y >= list.y && area.bottom() <= list.bottom() + 1;
    };
    ASSERT_TRUE(waitUntil([&] { return isInSight(0); }));
    EXPECT_EQ(named(notesTab, Role::list)->childCount(), count);
    const auto start = countersOf(program->pid()).processorMilliseconds;
    tabTo(QStringLiteral("New Note"));
    keyboard.tap(KeyCode::tab);
    keyboard.tap(KeyCode::end);
    EXPECT_TRUE(waitUntil([&] { return isInSight(count - 1); }));
    keyboard.tap(KeyCode::home);
    EXPECT_TRUE(waitUntil([&] { return isInSight(0); }));
    mouse.turnWheel(list.center(), -20);
    EXPECT_TRUE(waitUntil([&] { return !isInSight(0); }));
    EXPECT_LT(countersOf(program->pid()).processorMilliseconds - start, start);
    endProgram();
}

INSTANTIATE_FOR_ALL_SETUPS(NotesTabTest);

} // namespace
} // namespace sablequill
