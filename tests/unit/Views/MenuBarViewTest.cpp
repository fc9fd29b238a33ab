// SPDX-License-Identifier: MIT
#include "MenuBarView.h"

#include "Accessibility.h"
#include "AppFixture.h"
#include "Ink.h"
#include "PlainButton.h"
#include "SymbolView.h"
#include "TextLabel.h"
#include "Widgets.h"

#include <QSignalSpy>
#include <QTest>

namespace sablequill {
namespace {

class MenuBarViewTest : public AppFixture {
protected:
    MenuBarViewTest()
    {
        view.appear();
        present(view);
        view.activateWindow();
        settle();
        journal.take();
    }

    /// After a change, lays the view out as the popover does.
    void settle()
    {
        turn();
        view.resize(view.sizeHint());
        turn();
    }

    void makeNotes(int count)
    {
        AppFixture::makeNotes(count);
        settle();
    }

    QWidget& row(int index) { return found(view, QStringLiteral("note%1").arg(index)); }
    QWidget& control(const QString& title) { return found(view, title); }
    QRect frame(const QString& title) { return frameIn(view, control(title)); }
    TextLabel& text(const QString& words)
    {
        for (TextLabel* label : view.findChildren<TextLabel*>())
            if (label->text() == words)
                return *label;
        qFatal("no text says %s", qPrintable(words));
    }
    bool isMirkShown() { return found(view, QStringLiteral("mirkIndicator")).isVisible(); }

    /// The rows with a checkmark.
    std::vector<int> checkedRows()
    {
        std::vector<int> rows;
        for (int i = 0; i < 5; ++i)
            for (const SymbolView* symbol : row(i).findChildren<SymbolView*>())
                if (row(i).isVisible() && symbol->isVisible())
                    rows.push_back(i);
        return rows;
    }

    int settingsShown = 0;
    int quits = 0;
    const std::vector<MenuAction> actions = menuActions(
        appState, [this] { ++settingsShown; }, [this] { ++quits; });
    MenuBarView view{appState, actions};
};

const QStringList entries{QStringLiteral("Show Overlay"), QStringLiteral("Toggle Overlay"),
    QStringLiteral("New Note"), QStringLiteral("Settings…"), QStringLiteral("Quit Sablequill")};

using Rows = std::vector<int>;

// Texts and order

TEST_F(MenuBarViewTest, texts_firstRun_areAllThereInOrder)
{
    EXPECT_EQ(textsIn(view),
        QStringList(
            {QStringLiteral("Sablequill"), QStringLiteral("Notes"), QStringLiteral("Welcome")})
            + entries);
}

TEST_F(MenuBarViewTest, texts_noNotes_onlyTheHeading)
{
    makeNotes(0);
    EXPECT_EQ(textsIn(view),
        QStringList({QStringLiteral("Sablequill"), QStringLiteral("Notes")}) + entries);
}

TEST_F(MenuBarViewTest, notes_anyCount_atMostFiveAndTheRestAsANumber)
{
    struct Row {
        int count;
        int rows;
        QString overflow;
    };
    for (const Row& data :
        {Row{1, 1, {}}, {5, 5, {}}, {6, 5, QStringLiteral("+ 1 more in Settings")},
            {12, 5, QStringLiteral("+ 7 more in Settings")}, {5, 5, {}}}) {
        makeNotes(data.count);
        QStringList expected;
        for (int i = 1; i <= data.rows; ++i)
            expected.append(QStringLiteral("Note %1").arg(i));
        if (!data.overflow.isEmpty())
            expected.append(data.overflow);
        QStringList shown = textsIn(view).mid(2);
        EXPECT_EQ(shown.mid(0, shown.size() - entries.size()), expected) << data.count;
    }
}

TEST_F(MenuBarViewTest, notes_changedElsewhere_areFollowed)
{
    makeNotes(3);
    const QUuid id = note(1).id;
    appState.notesManager->updateContent(id, QStringLiteral("# Another title\nText"));
    settle();
    EXPECT_EQ(accessibleName(row(1)), note(1).title);
    EXPECT_TRUE(textsIn(view).contains(note(1).title));
    appState.notesManager->deleteNote(note(0));
    settle();
    EXPECT_FALSE(row(2).isVisible());
}

TEST_F(MenuBarViewTest, symbols_each_areTheOnesNamed)
{
    QStringList names;
    for (const QString& entry : entries)
        for (const SymbolView* symbol : control(entry).findChildren<SymbolView*>()) {
            names.append(symbol->symbol().name);
            EXPECT_EQ(symbol->width(), 16);
        }
    EXPECT_EQ(names,
        QStringList({QStringLiteral("rectangle.on.rectangle"), QStringLiteral("eye"),
            QStringLiteral("plus"), QStringLiteral("gearshape")}));
    const auto& mirk = found<SymbolView>(view, QStringLiteral("mirkIndicator"));
    EXPECT_EQ(mirk.symbol().name, QStringLiteral("eye.slash.fill"));
    EXPECT_EQ(mirk.symbol().size, 10);
    EXPECT_EQ(mirk.ink(), Ink{InkRole::green});
}

TEST_F(MenuBarViewTest, styles_each_areAsSet)
{
    makeNotes(6);
    const auto expect = [&](const QString& words, TextStyle style, InkRole role) {
        EXPECT_EQ(text(words).style(), style) << words.toStdString();
        EXPECT_EQ(text(words).ink(), Ink{role}) << words.toStdString();
    };
    expect(QStringLiteral("Sablequill"), TextStyles::headline, InkRole::primary);
    expect(
        QStringLiteral("Notes"), TextStyles::caption.weighted(QFont::DemiBold), InkRole::secondary);
    expect(QStringLiteral("Note 1"), TextStyles::body, InkRole::primary);
    expect(QStringLiteral("+ 1 more in Settings"), TextStyles::caption2, InkRole::tertiary);
    expect(QStringLiteral("Quit Sablequill"), TextStyles::body, InkRole::secondary);
}

// Sizes

TEST_F(MenuBarViewTest, width_always_is280)
{
    EXPECT_EQ(view.width(), 280);
    appState.notesManager->updateContent(note(0).id, QString(3000, u'W'));
    settle();
    EXPECT_EQ(view.width(), 280);
    EXPECT_EQ(row(0).width(), 280);
}

TEST_F(MenuBarViewTest, rows_each_reachFromEdgeToEdge)
{
    makeNotes(1);
    for (const QString& entry : entries)
        EXPECT_EQ(frame(entry).left(), 0) << entry.toStdString();
    for (const QString& entry : entries)
        EXPECT_EQ(frame(entry).width(), 280) << entry.toStdString();
    EXPECT_EQ(frame(QStringLiteral("note0")).width(), 280);
}

TEST_F(MenuBarViewTest, paddings_each_areAsSet)
{
    makeNotes(6);
    const QRect heading = frameIn(view, text(QStringLiteral("Notes")));
    const QRect first = frame(QStringLiteral("note0"));
    const QRect title = frameIn(view, text(QStringLiteral("Note 1")));
    const QRect overflow = frameIn(view, text(QStringLiteral("+ 1 more in Settings")));
    const QRect show = frame(entries[0]);
    EXPECT_EQ(heading.left(), 12);
    EXPECT_EQ(first.top(), heading.bottom() + 1 + 4);
    EXPECT_EQ(title.left(), 12);
    EXPECT_EQ(title.top() - first.top(), 4);
    EXPECT_EQ(first.bottom() - title.bottom(), 4);
    EXPECT_EQ(frame(QStringLiteral("note1")).top(), first.bottom() + 1 + 4);
    EXPECT_EQ(overflow.left(), 12);
    EXPECT_EQ(overflow.top(), frame(QStringLiteral("note4")).bottom() + 1 + 4);
    // Its own padding, the section's, the divider and the next section's padding.
    EXPECT_EQ(show.top(), overflow.bottom() + 1 + 4 + 8 + 1 + 6);
    EXPECT_EQ(frame(entries[1]).top(), show.bottom() + 1 + 2);
    EXPECT_EQ(frame(entries[4]).top(), frame(entries[3]).bottom() + 1 + 6 + 1);
}

TEST_F(MenuBarViewTest, paddings_headerAndFooter_areTwelveAndTen)
{
    const QRect name = frameIn(view, text(QStringLiteral("Sablequill")));
    const QRect heading = frameIn(view, text(QStringLiteral("Notes")));
    const QRect quit = frameIn(view, text(entries[4]));
    const QRect mirk = frame(QStringLiteral("mirkIndicator"));
    EXPECT_GE(name.top(), 12);
    EXPECT_EQ(279 - mirk.right(), 12);
    EXPECT_GE(heading.top(), name.bottom() + 1 + 12 + 1 + 8);
    EXPECT_EQ(quit.top() - frame(entries[4]).top(), 10);
    EXPECT_NEAR(quit.center().x(), 140, 1);
    EXPECT_EQ(view.height(), frame(entries[4]).bottom() + 1);
}

TEST_F(MenuBarViewTest, menuRow_label_isPaddedByTwelveAndFive)
{
    const QWidget& button = control(entries[0]);
    const QRect symbol = frameIn(button, *button.findChild<SymbolView*>());
    const QRect words = frameIn(button, text(entries[0]));
    EXPECT_EQ(symbol.left(), 12);
    EXPECT_EQ(words.left(), 12 + 16 + 8);
    EXPECT_EQ(std::min(symbol.top(), words.top()), 5);
}

TEST_F(MenuBarViewTest, heightChanged_moreNotes_isAnnounced)
{
    QSignalSpy changes(&view, &MenuBarView::heightChanged);
    const int before = view.sizeHint().height();
    makeNotes(4);
    EXPECT_GE(changes.count(), 1);
    EXPECT_GT(view.sizeHint().height(), before);
}

// Checkmark

TEST_F(MenuBarViewTest, checkmark_selection_isOnItsRowOnly)
{
    makeNotes(6);
    EXPECT_EQ(checkedRows(), Rows{0});
    appState.notesManager->selectedNoteID = note(3).id;
    turn();
    EXPECT_EQ(checkedRows(), Rows{3});
}

TEST_F(MenuBarViewTest, checkmark_selectionBeyondTheFirstFive_isOnNone)
{
    makeNotes(6);
    appState.notesManager->selectedNoteID = note(5).id;
    turn();
    EXPECT_EQ(checkedRows(), Rows{});
}

TEST_F(MenuBarViewTest, checkmark_nothingOrAnUnknownNoteSelected_isOnNone)
{
    makeNotes(3);
    appState.notesManager->selectedNoteID = std::nullopt;
    turn();
    EXPECT_EQ(checkedRows(), Rows{});
    appState.notesManager->selectedNoteID = QUuid::createUuid();
    turn();
    EXPECT_EQ(checkedRows(), Rows{});
}

// Mirk indicator

TEST_F(MenuBarViewTest, mirkIndicator_eachOpening_followsTheStoredSettings)
{
    EXPECT_TRUE(isMirkShown());
    AppSettings settings = appState.storageManager->settings;
    settings.mirkModeEnabled = false;
    appState.storageManager->saveSettings(settings);
    view.appear();
    EXPECT_FALSE(isMirkShown());
}

TEST_F(MenuBarViewTest, mirkIndicator_settingSavedWhileOpen_isFollowed)
{
    for (const bool isOn : {false, true}) {
        appState.settingsViewModel->mirkModeEnabled = isOn;
        settle();
        EXPECT_EQ(isMirkShown(), !isOn);
        appState.settingsViewModel->persist();
        settle();
        EXPECT_EQ(isMirkShown(), isOn);
    }
}

TEST_F(MenuBarViewTest, mirkIndicator_notesChange_followsTheStoredSettings)
{
    AppSettings settings = appState.storageManager->settings;
    settings.mirkModeEnabled = false;
    appState.storageManager->saveSettings(settings);
    makeNotes(2);
    EXPECT_FALSE(isMirkShown());
}

TEST_F(MenuBarViewTest, mirkIndicator_unsavedEdit_changesNothing)
{
    appState.settingsViewModel->mirkModeEnabled = false;
    view.appear();
    EXPECT_TRUE(isMirkShown());
    appState.settingsViewModel->persist();
    view.appear();
    EXPECT_FALSE(isMirkShown());
}

// Actions

TEST_F(MenuBarViewTest, appear_eachTime_thePanelIsThereOnce)
{
    EXPECT_EQ(panels.panelCount, 1);
    view.appear();
    EXPECT_EQ(panels.panelCount, 1);
    EXPECT_FALSE(panels.panel->isVisible());
}

TEST_F(MenuBarViewTest, noteRow_click_selectsAndShowsTheOverlay)
{
    makeNotes(5);
    QTest::mouseClick(&row(3), Qt::LeftButton);
    EXPECT_EQ(selectedNote(), note(3).id);
    EXPECT_EQ(callsOf("panel.orderFrontRegardless()"), 1);
}

TEST_F(MenuBarViewTest, noteRow_alreadySelected_stillShowsTheOverlay)
{
    makeNotes(2);
    QTest::mouseClick(&row(0), Qt::LeftButton);
    EXPECT_EQ(selectedNote(), note(0).id);
    EXPECT_EQ(callsOf("panel.orderFrontRegardless()"), 1);
}

TEST_F(MenuBarViewTest, noteRow_listGoneBeforeTheRowsFollow_doesNothing)
{
    makeNotes(3);
    appState.notesManager->notes = std::vector<MirkpadItem>{};
    QTest::mouseClick(&row(2), Qt::LeftButton);
    EXPECT_EQ(callsOf("panel.orderFrontRegardless()"), 0);
}

TEST_F(MenuBarViewTest, entries_click_doWhatTheySay)
{
    QTest::mouseClick(&control(entries[0]), Qt::LeftButton);
    EXPECT_TRUE(appState.overlayManager->isVisible);
    EXPECT_EQ(callsOf("panel.orderFrontRegardless()"), 1);

    QTest::mouseClick(&control(entries[1]), Qt::LeftButton);
    EXPECT_FALSE(appState.overlayManager->isVisible);
    QTest::mouseClick(&control(entries[1]), Qt::LeftButton);
    EXPECT_TRUE(appState.overlayManager->isVisible);

    QTest::mouseClick(&control(entries[3]), Qt::LeftButton);
    EXPECT_EQ(settingsShown, 1);
    QTest::mouseClick(&control(entries[4]), Qt::LeftButton);
    EXPECT_EQ(quits, 1);
}

TEST_F(MenuBarViewTest, newNote_click_opensItInTheEditor)
{
    QTest::mouseClick(&control(QStringLiteral("New Note")), Qt::LeftButton);
    EXPECT_EQ(appState.notesManager->notes->size(), 2U);
    EXPECT_EQ(selectedNote(), note(0).id);
    EXPECT_TRUE(appState.overlayManager->isEditing);
    EXPECT_TRUE(panels.panel->isKey);
}

TEST_F(MenuBarViewTest, entries_pressAnywhereInTheRow_counts)
{
    QWidget& settings = control(entries[3]);
    for (const QPoint place : {QPoint(1, 1), QPoint(200, 3), settings.rect().bottomRight()})
        QTest::mouseClick(&settings, Qt::LeftButton, {}, place);
    EXPECT_EQ(settingsShown, 3);
}

TEST_F(MenuBarViewTest, actions_forHostsWithMenus_areTheEntries)
{
    QStringList titles;
    for (const MenuAction& action : actions)
        titles.append(action.title);
    EXPECT_EQ(titles, entries);
    actions[3].run();
    actions[4].run();
    EXPECT_EQ(settingsShown, 1);
    EXPECT_EQ(quits, 1);
}

// Keyboard

TEST_F(MenuBarViewTest, tabAndArrows_allControls_inTheirOrder)
{
    makeNotes(2);
    QStringList names;
    for (int i = 0; i < 7; ++i)
        names.append(accessibleName(*focusAfterTab(view)));
    const QStringList expected =
        QStringList({QStringLiteral("Note 1"), QStringLiteral("Note 2")}) + entries;
    EXPECT_EQ(names, expected);

    view.setFocus();
    names.clear();
    for (int i = 0; i < 7; ++i) {
        QTest::keyClick(view.focusWidget(), Qt::Key_Down);
        names.append(accessibleName(*view.focusWidget()));
    }
    EXPECT_EQ(names, expected);
    QTest::keyClick(view.focusWidget(), Qt::Key_Up);
    EXPECT_EQ(accessibleName(*view.focusWidget()), entries[3]);
}

TEST_F(MenuBarViewTest, arrows_pastTheEnds_wrap)
{
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(accessibleName(*view.focusWidget()), entries[4]);
    QTest::keyClick(view.focusWidget(), Qt::Key_Down);
    EXPECT_EQ(accessibleName(*view.focusWidget()), QStringLiteral("Welcome"));
}

TEST_F(MenuBarViewTest, returnAndSpace_onARow_pressIt)
{
    makeNotes(3);
    focusAfterTab(view, 2);
    QTest::keyClick(view.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(selectedNote(), note(1).id);
    focusAfterTab(view);
    QTest::keyClick(view.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(selectedNote(), note(2).id);
}

TEST_F(MenuBarViewTest, appear_afterKeysWereUsed_startsAboveTheFirstRow)
{
    focusAfterTab(view, 3);
    view.appear();
    EXPECT_TRUE(view.hasFocus());
}

TEST_F(MenuBarViewTest, escape_anywhere_asksToClose)
{
    QSignalSpy escapes(&view, &MenuBarView::escaped);
    QTest::keyClick(&view, Qt::Key_Escape);
    QTest::keyClick(focusAfterTab(view), Qt::Key_Escape);
    EXPECT_EQ(escapes.count(), 2);
}

// Screen readers

TEST_F(MenuBarViewTest, accessible_everyControl_isANamedButton)
{
    makeNotes(5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(accessibleName(row(i)), note(i).title);
    for (const QString& entry : entries)
        EXPECT_EQ(accessibleName(control(entry)), entry);
    for (auto* button : view.findChildren<PlainButton*>())
        EXPECT_EQ(accessible(*button).role(), QAccessible::Button);
    EXPECT_EQ(accessibleName(control(QStringLiteral("mirkIndicator"))),
        QStringLiteral("Mirk mode is on"));
}

TEST_F(MenuBarViewTest, accessible_selectedRow_saysSo)
{
    makeNotes(2);
    EXPECT_EQ(
        accessible(row(0)).text(QAccessible::Description), QStringLiteral("Shown in the overlay"));
    EXPECT_EQ(accessible(row(1)).text(QAccessible::Description), QString());
}

TEST_F(MenuBarViewTest, accessible_press_runsTheAction)
{
    pressAccessibly(control(entries[3]));
    EXPECT_TRUE(waitFor([&] { return settingsShown == 1; }));
}

} // namespace
} // namespace sablequill
