// SPDX-License-Identifier: MIT
#include "DesktopSession.h"
#include "Keyboard.h"
#include "Overlay.h"
#include "PortalBackEnd.h"
#include "PortalStub.h"
#include "ProbeWindow.h"
#include "ProgramUnderTest.h"
#include "Screenshot.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

const QString toggle = QStringLiteral("toggleOverlay");
const QString nextNote = QStringLiteral("nextNote");

/// Longer than every delay the program has.
constexpr Milliseconds watchTime{500};

/// The built program where it takes the session for a Wayland one, with the portal of this system
/// and a desktop behind it.
class PortalProgramTest : public testing::Test {
protected:
    static void TearDownTestSuite() { DesktopSession::dropShared(); }

    void SetUp() override
    {
        user.writeNotes({
            noteRecord(1, QStringLiteral("First"), QStringLiteral("First\n\nOne short line.")),
            noteRecord(2, QStringLiteral("Second"), QStringLiteral("Second\n\nAnother one.")),
            noteRecord(3, QStringLiteral("Third"), QStringLiteral("Third\n\nAnd a third one.")),
        });
        user.writeSettings(defaultSettings());
    }

    void startPortal()
    {
        portal.emplace(ChildProcessDescription{{SYSTEM_PORTAL},
            PortalBackEnd::addTo(session.environment(user), user), user.path() / "portal.log"});
    }

    void startProgram()
    {
        ASSERT_TRUE(runUntil([&] { return !overlay.isShown(); }));
        program = std::make_unique<ProgramUnderTest>(
            std::vector<std::string>{"env", "XDG_SESSION_TYPE=wayland", SABLEQUILL_BINARY}, session,
            user);
        ASSERT_TRUE(runUntil([&] { return overlay.isShown(); }));
    }

    void expectBound()
    {
        ASSERT_TRUE(runUntil([&] { return desktop.bound().has_value(); })) << portal->output();
    }

    /// Presses any number of times, as the program may not have its keys yet.
    void expectChangesTheNote(const std::function<void()>& pressNextNote)
    {
        const QImage note = overlay.steadyPicture();
        EXPECT_TRUE(runUntil([&] {
            pressNextNote();
            return captureScreen(x, overlay.card()) != note;
        }));
    }

    /// Fails the test unless each press acts a single time.
    void expectPressesWork(const std::function<void()>& pressToggle)
    {
        pressToggle();
        EXPECT_TRUE(runUntil([&] { return !overlay.isShown(); }));
        EXPECT_TRUE(runWhile([&] { return !overlay.isShown(); }, watchTime));
        pressToggle();
        EXPECT_TRUE(runUntil([&] { return overlay.isShown(); }));
        EXPECT_TRUE(runWhile([&] { return overlay.isShown(); }, watchTime));
    }

    void expectDesktopsKeysWork()
    {
        expectChangesTheNote([&] { desktop.press(nextNote); });
        expectPressesWork([&] { desktop.press(toggle); });
    }

    /// What a press of the X server's keyboard does on this server, and not in a Wayland session.
    void pressOnServer(xcb_keycode_t key)
    {
        keyboard.chord({KeyCode::leftSuper, KeyCode::leftShift}, key);
    }

    void expectGrabsWork()
    {
        expectChangesTheNote([&] { pressOnServer(KeyCode::down); });
        expectPressesWork([&] { pressOnServer(KeyCode::g); });
    }

    void expectNoGrabs()
    {
        ProbeWindow other(session.displayName(), {.isFullScreen = false});
        for (const auto code : {KeyCode::g, KeyCode::o, KeyCode::up, KeyCode::down})
            EXPECT_TRUE(other.grabKey(code, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT)) << int{code};
    }

    DesktopSession& session = DesktopSession::shared(WindowManagerSetup::openbox);
    PrivateHome user;
    const std::string address = session.environment(user).at("DBUS_SESSION_BUS_ADDRESS");
    XConnection x{session.displayName()};
    Keyboard keyboard{x};
    Overlay overlay{x};
    PortalBackEnd desktop{address};
    std::optional<ChildProcess> portal;
    std::unique_ptr<ProgramUnderTest> program;
};

TEST_F(PortalProgramTest, press_heldByTheDesktop_actsOnce)
{
    startPortal();
    startProgram();
    expectBound();
    expectDesktopsKeysWork();
    expectNoGrabs();
    EXPECT_EQ(desktop.questions(), 1);
}

TEST_F(PortalProgramTest, start_always_proposesTheBindingsOfTheSettings)
{
    auto settings = defaultSettings();
    auto shortcuts = settings[u"shortcuts"].toObject();
    shortcuts[u"quickOpen"] =
        QJsonObject{{QStringLiteral("keyCode"), 45}, {QStringLiteral("modifiers"), 4}};
    settings[u"shortcuts"] = shortcuts;
    user.writeSettings(settings);
    startPortal();
    startProgram();
    expectBound();
    const PortalShortcuts expected{
        {toggle, QStringLiteral("Toggle Overlay"), QStringLiteral("LOGO+SHIFT+g")},
        {QStringLiteral("quickOpen"), QStringLiteral("Quick Open"), QStringLiteral("ALT+n")},
        {nextNote, QStringLiteral("Next Note"), QStringLiteral("LOGO+SHIFT+Down")},
        {QStringLiteral("previousNote"), QStringLiteral("Previous Note"),
            QStringLiteral("LOGO+SHIFT+Up")},
    };
    EXPECT_TRUE(desktop.bound() == expected);
}

TEST_F(PortalProgramTest, bind_refusedByTheUser_worksWithoutKeys)
{
    desktop.answer = 1;
    startPortal();
    startProgram();
    EXPECT_TRUE(runUntil([&] { return desktop.questions() == 1; }));
    EXPECT_TRUE(runWhile([&] { return overlay.isShown() && desktop.questions() == 1; }, watchTime));
    expectNoGrabs();
}

TEST_F(PortalProgramTest, start_noPortal_grabsServe)
{
    startProgram();
    expectGrabsWork();
}

TEST_F(PortalProgramTest, start_portalHangs_grabsServe)
{
    PortalStub hanging(address, {.isHanging = true});
    startProgram();
    expectGrabsWork();
    EXPECT_FALSE(hanging.calls().isEmpty());
}

TEST_F(PortalProgramTest, portalComesAndGoes_always_oneOfBothServes)
{
    startProgram();
    expectGrabsWork();
    startPortal();
    expectBound();
    expectDesktopsKeysWork();
    expectNoGrabs();

    portal.reset();
    expectGrabsWork();

    const int asked = desktop.questions();
    startPortal();
    EXPECT_TRUE(runUntil([&] { return desktop.questions() > asked; }));
    expectDesktopsKeysWork();
}

} // namespace
} // namespace sablequill
