// SPDX-License-Identifier: MIT
#include "ShellTest.h"

#include "SessionBus.h"
#include "VirtualDisplay.h"

#include <sys/wait.h>

namespace sablequill {
namespace {

class EndingTest : public ShellTest {
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        becomeExperienced();
    }
};

TEST_F(EndingTest, signals_popoverAndSettingsOpen_endCleanly)
{
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        SCOPED_TRACE(signal);
        startProgram();
        mouse.click(popover.action(PopoverAction::settings));
        ASSERT_TRUE(runUntil([this] { return settingsWindow().has_value(); }));
        endProgram(signal);
    }
}

TEST_F(EndingTest, signal_whileStarting_endsCleanly)
{
    program = std::make_unique<ProgramUnderTest>(
        std::vector<std::string>{SABLEQUILL_BINARY}, session, user);
    ASSERT_TRUE(runUntil([this] { return overlay.window().has_value(); }));
    endProgram(SIGTERM);
}

TEST_F(EndingTest, start_noDisplay_saysInOneSentenceWhatItNeeds)
{
    for (const std::string display : {"", ":nowhere"}) {
        auto environment = session.environment(user);
        environment["DISPLAY"] = display;
        ChildProcess process(
            {{SABLEQUILL_BINARY}, environment, user.path() / ("display" + display + ".log")});
        const auto status = process.waitForExit();
        ASSERT_TRUE(status) << "does not end";
        EXPECT_TRUE(WIFEXITED(*status));
        EXPECT_EQ(WEXITSTATUS(*status), 1);
        EXPECT_EQ(process.output(),
            "Sablequill needs an X server, or a Wayland session with XWayland.\n");
    }
}

/// A display and a bus of its own, which a test takes away.
class LosingTest : public testing::Test {
protected:
    LosingTest()
    {
        environment["DISPLAY"] = display->name();
        environment["DBUS_SESSION_BUS_ADDRESS"] = SessionBus::addressIn(user);
        user.writeNotes({noteRecord(1, QStringLiteral("One"), QStringLiteral("# One"))});
        user.writeSettings(defaultSettings());
        bus = std::make_unique<SessionBus>(user, environment);
    }

    std::unique_ptr<ChildProcess> start()
    {
        auto started = std::make_unique<ChildProcess>(
            ChildProcessDescription{{SABLEQUILL_BINARY}, environment, user.path() / "program.log"});
        const XConnection x(display->name());
        EXPECT_TRUE(runUntil([&] { return Overlay(x).isShown() && Popover(x).isShown(); }));
        return started;
    }

    const PrivateHome user;
    Environment environment = user.environment();
    std::unique_ptr<VirtualDisplay> display = std::make_unique<VirtualDisplay>(user, ScreenSize{});
    std::unique_ptr<SessionBus> bus;
};

TEST_F(LosingTest, display_goes_endsByItself)
{
    const auto program = start();
    const auto notes = user.readNotes();
    display.reset();
    const auto status = program->waitForExit();
    ASSERT_TRUE(status) << "runs on without a display";
    EXPECT_TRUE(WIFEXITED(*status)) << "crashed by signal " << WTERMSIG(*status);
    EXPECT_EQ(user.readNotes(), notes);
    EXPECT_EQ(user.readSettings(), defaultSettings());
}

TEST_F(LosingTest, bus_goes_worksOn)
{
    const auto program = start();
    bus.reset();
    const XConnection x(display->name());
    Mouse mouse(x);
    const Overlay overlay(x);
    const Popover popover(x);
    mouse.click(popover.action(PopoverAction::toggleOverlay));
    EXPECT_TRUE(runUntil([&] { return !overlay.isShown(); }));
    mouse.click(popover.action(PopoverAction::newNote));
    EXPECT_TRUE(runUntil([&] { return overlay.isShown() && overlay.hasKeyboard(); }));
    EXPECT_TRUE(runUntil([&] { return user.readNotes()->size() == 2; }));
    EXPECT_TRUE(program->isRunning());
    EXPECT_EQ(program->output(), "");
}

TEST_F(LosingTest, bus_neverThere_works)
{
    bus.reset();
    const auto program = start();
    EXPECT_TRUE(program->isRunning());
    EXPECT_EQ(program->output(), "");
}

} // namespace
} // namespace sablequill
