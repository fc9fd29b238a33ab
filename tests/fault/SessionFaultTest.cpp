// SPDX-License-Identifier: MIT
#include "FaultyProgramTest.h"

#include "Readiness.h"

#include <sstream>

namespace sablequill {
namespace {

/// The parts of a session end under the program, and others come.
class SessionFaultTest : public FaultyProgramTest {
protected:
    void SetUp() override
    {
        FaultyProgramTest::SetUp();
        session.spend();
    }

    /// Another program's full-screen window comes; the overlay is above it, its keys and its editor
    /// work, and the keyboard goes back where it was.
    void expectEverythingWorks(const char* when);
    void runInSession(const std::vector<std::string>& command) const
    {
        runCommand({command, environment(), user.path() / "command.log"});
    }
    /// A screen as the server tells of it: the whole of its only output, or of none.
    void addScreen(const std::string& name, Area area, const std::string& output) const
    {
        std::ostringstream geometry;
        geometry << area.width << "/169x" << area.height << "/211+" << area.x << '+' << area.y;
        runInSession({"xrandr", "--setmonitor", name, geometry.str(), output});
    }
    /// From 1280 x 800 pixels to 800 x 600.
    void shrinkScreen() const
    {
        runInSession({"xrandr", "--newmode", "small", "40", "800", "840", "968", "1056", "600",
            "601", "605", "628"});
        runInSession({"xrandr", "--addmode", "screen", "small"});
        runInSession({"xrandr", "--output", "screen", "--mode", "small"});
    }
    Area windowArea() const
    {
        const auto id = overlay.window();
        return id ? areaOf(x, *id).value_or(Area{}) : Area{};
    }
    std::unique_ptr<RunningWindowManager> startManager(WindowManagerSetup setup) const
    {
        return std::make_unique<RunningWindowManager>(setup, user, environment());
    }

    int edits = 0;
};

void SessionFaultTest::expectEverythingWorks(const char* when)
{
    SCOPED_TRACE(when);
    ProbeWindow other(session.displayName(), {.color = QColor(200, 40, 40)});
    other.show();
    const auto isAbove = [&] { return overlay.isShown() && overlay.isAbove(other.window()); };
    EXPECT_TRUE(waitUntil(isAbove)) << "is not above";
    expectGoesOn();
    EXPECT_TRUE(waitUntil(isAbove)) << "is not above any more";
    quickOpen();
    const std::string text = "edit " + std::to_string(++edits);
    retype(text);
    expectSaved(0, QString::fromStdString(text));
    pressToggle();
    EXPECT_TRUE(waitUntil([&] { return other.hasFocus(); })) << "keeps the keyboard";
    EXPECT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    pressToggle();
    EXPECT_TRUE(waitUntil(isAbove));
    expectOtherNotesKept();
}

TEST_P(SessionFaultTest, windowManager_killedAndAnotherStarted_overlayAndKeysWork)
{
    probe.hide();
    startProgram();
    const Area card = overlay.card();
    expectEverythingWorks("without a window manager");
    for (const auto setup :
        {WindowManagerSetup::openbox, WindowManagerSetup::i3, WindowManagerSetup::xfwm4}) {
        auto manager = startManager(setup);
        expectEverythingWorks(traits(setup).name);
        EXPECT_EQ(overlay.card(), card);
        // For ever the active one, as what the manager leaves behind says.
        ProbeWindow active(session.displayName(), {.isFullScreen = false});
        active.show();
        manager.reset();
        ASSERT_TRUE(waitUntilUnmanaged(x));
        expectEverythingWorks("after it was killed");
        EXPECT_EQ(overlay.card(), card);
    }
    endProgram();
}

TEST_P(SessionFaultTest, compositor_onAndOff_overlayHasItsShadowWhileThereIsOne)
{
    probe.hide();
    const auto manager = startManager(WindowManagerSetup::openbox);
    startProgram();
    const Area card = overlay.card();
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(waitUntil([&] { return windowArea() == card; })) << windowArea();
        expectEverythingWorks("without a compositor");
        ChildProcess compositor(
            {{"picom", "--backend", "xrender", "--no-vsync", "--config", "/dev/null"},
                environment(), user.path() / "picom.log"});
        EXPECT_TRUE(waitUntil([&] { return windowArea().width > card.width; })) << "no shadow";
        expectEverythingWorks("with a compositor");
        EXPECT_EQ(overlay.card(), card);
    }
    endProgram();
}

TEST_P(SessionFaultTest, screen_shrunkUnderTheCard_cardComesBackOntoIt)
{
    user.writeSettings(settingsWith({840, 500, 420, 280}));
    startProgram();
    probe.hide();
    shrinkScreen();
    EXPECT_TRUE(waitUntil([&] { return overlay.card().right() <= 800; })) << overlay.card();
    EXPECT_LE(overlay.card().bottom(), 600);
    expectEverythingWorks("on the small screen");
    const Area card = overlay.card();
    runInSession({"xrandr", "--output", "screen", "--mode", "1280x800"});
    ASSERT_TRUE(
        waitUntil([&] { return XConnection(session.displayName()).screenArea().width == 1280; }));
    expectEverythingWorks("on the large screen");
    EXPECT_EQ(overlay.card().width, card.width);
    endProgram();
}

/// Frames are counted from the bottom of the screen.
TEST_P(SessionFaultTest, screen_shrunkBesideTheCard_nextStartShowsItWhereItWas)
{
    const Area card{100, 100, 420, 280};
    user.writeSettings(settingsWith(card));
    startProgram();
    probe.hide();
    shrinkScreen();
    expectEverythingWorks("on the small screen");
    EXPECT_EQ(overlay.card(), card);
    endProgram();
    startProgram();
    EXPECT_EQ(overlay.card(), card);
    endProgram();
}

/// The primary screen, which all frames are counted from, is the left one while it is there.
TEST_P(SessionFaultTest, screen_takenAwayUnderTheCard_cardComesBackOntoTheOtherAndIsStoredThere)
{
    constexpr Area left{0, 0, 640, 800};
    constexpr Area right{640, 0, 640, 800};
    probe.hide();
    for (const auto& [kept, taken] : {std::pair(left, right), std::pair(right, left)}) {
        SCOPED_TRACE(testing::Message() << "taken away: " << taken);
        addScreen(kept == left ? "*kept" : "kept", kept, "screen");
        addScreen(taken == left ? "*taken" : "taken", taken, "none");
        const Area card{taken.x + 120, 150, 420, 280};
        user.writeSettings(settingsWith(card));
        startProgram();
        EXPECT_EQ(overlay.card(), card);
        runInSession({"xrandr", "--delmonitor", "taken"});
        const Area nearest{
            kept == left ? kept.right() - card.width : kept.x, card.y, card.width, card.height};
        EXPECT_TRUE(waitUntil([&] { return overlay.card() == nearest; })) << overlay.card();
        expectEverythingWorks("on the screen that is left");
        endProgram();
        startProgram();
        EXPECT_EQ(overlay.card(), nearest);
        endProgram();
        runInSession({"xrandr", "--delmonitor", "kept"});
    }
}

TEST_P(SessionFaultTest, sessionBus_killed_everythingButTheBusWorksAndTheProgramSleeps)
{
    startProgram();
    session.killBus();
    expectEverythingWorks("without a session bus");
    overlay.steadyPicture();
    const auto before = countersOf(program->pid());
    EXPECT_TRUE(holdsFor([&] { return program->isRunning(); }, Milliseconds(1000)));
    EXPECT_LE(countersOf(program->pid()).voluntarySwitches - before.voluntarySwitches, 5);
    endProgram();
}

TEST_P(SessionFaultTest, displayServer_killedWhileTyping_endsWithoutACrashAndEveryKeyIsThere)
{
    startEditing("kept");
    typeSaved(" to the last");
    killDisplay();
    expectSaved(0, typed);
    expectOtherNotesKept();
    EXPECT_EQ(names(), bothFiles());
}

INSTANTIATE_WITHOUT_MANAGER(SessionFaultTest);

} // namespace
} // namespace sablequill
