// SPDX-License-Identifier: MIT
#include "ShellTest.h"

#include <sys/wait.h>

namespace sablequill {
namespace {

constexpr int notes = 3;

/// A user with three notes, the program in the status area.
class PopoverTest : public ManagedShellTest {
protected:
    void SetUp() override
    {
        ManagedShellTest::SetUp();
        startStatusArea();
    }

    /// Opens the popover, which then has the keyboard.
    void open(int notes = 3)
    {
        becomeExperienced(notes);
        startProgram();
        openPopover();
    }

    bool isClosed() const
    {
        return runUntil([this] { return !popover.isShown(); });
    }

    /// Goes down as many steps, and presses Return there.
    void choose(int steps)
    {
        for (int step = 0; step < steps; ++step)
            keyboard.tap(KeyCode::down);
        keyboard.tap(KeyCode::returnKey);
    }

    /// The notes lie above the actions.
    void choose(PopoverAction action) { choose(notes + static_cast<int>(action) + 1); }

    void click(PopoverAction action) { mouse.click(popover.action(action)); }

    /// Expects the overlay to be the one or the other, and each command to act at once.
    void expectOverlayFollows(const std::function<void(PopoverAction)>& command)
    {
        command(PopoverAction::toggleOverlay);
        ASSERT_TRUE(runUntil([this] { return !overlay.isShown(); }));
        command(PopoverAction::showOverlay);
        ASSERT_TRUE(runUntil([this] { return overlay.isShown(); }));
        command(PopoverAction::showOverlay);
        EXPECT_TRUE(runWhile([this] { return overlay.isShown(); }, watchTime));
    }

    /// Expects the new note in the file, and its editor with the keyboard.
    void expectNewNote()
    {
        ASSERT_TRUE(areNotesSaved(notes + 1));
        EXPECT_EQ(savedContent(0), QStringLiteral("# New Note\n\nStart typing..."));
        ASSERT_TRUE(runUntil([this] { return overlay.hasKeyboard(); }));
        EXPECT_TRUE(isClosed());
        keyboard.chord({KeyCode::leftControl}, KeyCode::a);
        keyboard.type("typed");
        EXPECT_TRUE(runUntil([this] { return savedContent(0) == QStringLiteral("typed"); }));
    }

    /// Expects the Settings window, and closes it; the program goes on.
    void expectSettings()
    {
        ASSERT_TRUE(runUntil([this] { return settingsWindow().has_value(); }));
        const xcb_window_t window = *settingsWindow();
        if (traits(GetParam()).isManaged) {
            EXPECT_TRUE(runUntil([&] { return isInWindowList(window); }));
            EXPECT_TRUE(runUntil([&] { return hasKeyboard(x, window); }));
            EXPECT_TRUE(isClosed());
        }
        askToClose(window);
        EXPECT_TRUE(runUntil([this] { return !settingsWindow(); }));
        EXPECT_TRUE(runWhile([this] { return program->isRunning(); }, watchTime));
        EXPECT_TRUE(overlay.isShown());
    }

    /// As the button in a title bar does.
    void askToClose(xcb_window_t window)
    {
        xcb_client_message_event_t event{};
        event.response_type = XCB_CLIENT_MESSAGE;
        event.format = 32;
        event.window = window;
        event.type = x.atom("WM_PROTOCOLS");
        event.data.data32[0] = x.atom("WM_DELETE_WINDOW");
        xcb_send_event(
            x.get(), 0, window, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
        x.sync();
    }

    /// Which note the overlay shows: types a letter into it.
    void expectShows(int index)
    {
        keyboard.chord({KeyCode::leftSuper, KeyCode::leftShift}, KeyCode::o);
        ASSERT_TRUE(runUntil([this] { return overlay.hasKeyboard(); }));
        keyboard.chord({KeyCode::leftControl}, KeyCode::a);
        keyboard.type("here");
        EXPECT_TRUE(runUntil([&] { return savedContent(index) == QStringLiteral("here"); }));
    }

    bool showsGreen(const Area& area) const
    {
        const QImage picture = captureScreen(x, area);
        for (int row = 0; row < picture.height(); ++row) {
            for (int column = 0; column < picture.width(); ++column) {
                const QColor color = picture.pixelColor(column, row);
                if (color.green() > color.red() + 80 && color.green() > color.blue() + 80)
                    return true;
            }
        }
        return false;
    }
};

TEST_P(PopoverTest, clickOnTheIcon_closed_opensAtTheIcon)
{
    becomeExperienced();
    startProgram();
    leavePopover();
    mouse.click(icon()->center());
    expectPopoverOpens();
    EXPECT_TRUE(isPopoverBelow(*icon())) << popover.card();
    EXPECT_EQ(popover.card().width, 280);
    EXPECT_FALSE(isInWindowList(*popover.window()));
}

TEST_P(PopoverTest, clickOnTheIcon_open_closes)
{
    open();
    mouse.click(icon()->center());
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(runWhile([this] { return !popover.isShown(); }, watchTime));
    mouse.click(icon()->center());
    expectPopoverOpens();
}

TEST_P(PopoverTest, clickElsewhere_open_closes)
{
    open();
    dismissPopover();
    keyboard.tap(KeyCode::g);
    EXPECT_TRUE(runUntil([this] { return probe.receivedKey(KeyCode::g); }));
}

TEST_P(PopoverTest, clickElsewhere_cameUpByItself_closes)
{
    becomeExperienced();
    startProgram();
    EXPECT_TRUE(
        runWhile([this] { return popover.isShown() && !popover.hasKeyboard(); }, watchTime));
    dismissPopover();
    EXPECT_TRUE(overlay.isShown());
}

TEST_P(PopoverTest, quickOpen_cameUpByItself_closes)
{
    becomeExperienced();
    startProgram();
    keyboard.chord({KeyCode::leftSuper, KeyCode::leftShift}, KeyCode::o);
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(runUntil([this] { return overlay.hasKeyboard(); }));
}

TEST_P(PopoverTest, clickOnTheOverlay_cameUpByItself_closes)
{
    becomeExperienced();
    startProgram();
    mouse.click(overlay.contentBackground());
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(runUntil([this] { return overlay.hasKeyboard(); }));
}

TEST_P(PopoverTest, escape_open_closesAndGivesTheKeyboardBack)
{
    open();
    keyboard.tap(KeyCode::escape);
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(runUntil([this] { return probe.hasFocus(); }));
}

TEST_P(PopoverTest, otherWindowActivated_open_closes)
{
    open();
    probe.activate();
    EXPECT_TRUE(isClosed());
    EXPECT_TRUE(runUntil([this] { return probe.hasFocus(); }));
}

TEST_P(PopoverTest, note_byMouse_overlayShowsIt)
{
    open();
    mouse.click(popover.note(1, notes));
    expectShows(1);
}

TEST_P(PopoverTest, note_byKeys_overlayShowsIt)
{
    open();
    const QImage before = overlay.steadyPicture();
    choose(3);
    EXPECT_TRUE(runUntil([&] { return overlay.steadyPicture() != before; }));
    expectShows(2);
}

TEST_P(PopoverTest, note_overlayHidden_bringsItUp)
{
    open();
    click(PopoverAction::toggleOverlay);
    ASSERT_TRUE(runUntil([this] { return !overlay.isShown(); }));
    mouse.click(popover.note(0, notes));
    EXPECT_TRUE(runUntil([this] { return overlay.isShown(); }));
}

TEST_P(PopoverTest, showAndToggle_byMouse_overlayFollows)
{
    open();
    expectOverlayFollows([this](PopoverAction action) { click(action); });
}

TEST_P(PopoverTest, showAndToggle_byKeys_overlayFollows)
{
    open();
    expectOverlayFollows([this](PopoverAction action) {
        openPopover();
        choose(action);
        keyboard.tap(KeyCode::escape);
        ASSERT_TRUE(isClosed());
    });
}

TEST_P(PopoverTest, newNote_byMouse_opensItsEditor)
{
    open();
    click(PopoverAction::newNote);
    expectNewNote();
}

TEST_P(PopoverTest, newNote_byKeys_opensItsEditor)
{
    open();
    choose(PopoverAction::newNote);
    expectNewNote();
}

TEST_P(PopoverTest, settings_byMouse_opensTheWindow)
{
    open();
    click(PopoverAction::settings);
    expectSettings();
}

TEST_P(PopoverTest, settings_byKeysTwice_opensTheWindowAgain)
{
    open();
    choose(PopoverAction::settings);
    expectSettings();
    openPopover();
    choose(PopoverAction::settings);
    expectSettings();
}

TEST_P(PopoverTest, settings_overlayTakesTheKeyboardAndHides_haveItAgain)
{
    open();
    choose(PopoverAction::settings);
    ASSERT_TRUE(runUntil([this] { return settingsWindow().has_value(); }));
    const xcb_window_t window = *settingsWindow();
    ASSERT_TRUE(runUntil([&] { return isClosed() && hasKeyboard(x, window); }));
    keyboard.chord({KeyCode::leftSuper, KeyCode::leftShift}, KeyCode::o);
    ASSERT_TRUE(runUntil([this] { return overlay.hasKeyboard(); }));
    keyboard.chord({KeyCode::leftSuper, KeyCode::leftShift}, KeyCode::g);
    ASSERT_TRUE(runUntil([this] { return !overlay.isShown(); }));
    EXPECT_TRUE(runUntil([&] { return hasKeyboard(x, window); }));
}

TEST_P(PopoverTest, quit_byMouse_ends)
{
    open();
    click(PopoverAction::quit);
    expectEnded();
}

TEST_P(PopoverTest, quit_byKeys_ends)
{
    open();
    keyboard.tap(KeyCode::up);
    keyboard.tap(KeyCode::returnKey);
    expectEnded();
}

TEST_P(PopoverTest, notes_fiveAndMore_showsFiveAndSaysHowManyMore)
{
    open(5);
    const Area five = popover.notesSection();
    mouse.click(popover.note(4, 5));
    expectShows(4);
    endProgram();
    open(6);
    const Area six = popover.notesSection();
    const QImage oneMore = popover.steadyPicture();
    EXPECT_GT(six.height, five.height);
    EXPECT_LT(six.height, five.height + 24) << "a line, no row";
    endProgram();
    open(12);
    EXPECT_EQ(popover.notesSection(), six);
    EXPECT_NE(popover.steadyPicture(), oneMore);
}

TEST_P(PopoverTest, mirkMode_onAndOff_isSaidInTheHeader)
{
    open();
    EXPECT_TRUE(showsGreen(popover.header()));
    endProgram();
    becomeExperienced();
    auto settings = defaultSettings();
    settings[u"mirkModeEnabled"] = false;
    user.writeSettings(settings);
    startProgram();
    openPopover();
    popover.steadyPicture();
    EXPECT_FALSE(showsGreen(popover.header()));
}

INSTANTIATE_FOR_ALL_SETUPS(PopoverTest);

} // namespace
} // namespace sablequill
