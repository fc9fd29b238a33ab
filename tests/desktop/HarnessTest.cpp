// SPDX-License-Identifier: MIT
#include "DesktopSession.h"
#include "Keyboard.h"
#include "Mouse.h"
#include "ProbeWindow.h"
#include "ProgramUnderTest.h"
#include "Screenshot.h"
#include "Windows.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <xcb/shape.h>

#include <csignal>
#include <fstream>

#include <sys/wait.h>
#include <unistd.h>

namespace sablequill {
namespace {

const QColor red(255, 0, 0);
const QColor blue(0, 0, 255);
constexpr Milliseconds moment{150};

/// A window that no window manager touches, of one color with the opacity given.
class UnmanagedWindow {
public:
    UnmanagedWindow(const XConnection& connection, Area area, const QColor& color)
        : x(connection)
        , id(xcb_generate_id(connection.get()))
    {
        // A click that nobody takes goes to the root, where xfwm4 waits for a second one.
        const uint32_t values[] = {color.rgb(), 1, XCB_EVENT_MASK_BUTTON_PRESS};
        xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, id, x.root(), static_cast<int16_t>(area.x),
            static_cast<int16_t>(area.y), static_cast<uint16_t>(area.width),
            static_cast<uint16_t>(area.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
            XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
            values);
    }
    UnmanagedWindow(const UnmanagedWindow&) = delete;
    UnmanagedWindow& operator=(const UnmanagedWindow&) = delete;
    ~UnmanagedWindow()
    {
        xcb_destroy_window(x.get(), id);
        xcb_flush(x.get());
    }

    void setOpacity(double opacity) const
    {
        const auto value = static_cast<uint32_t>(opacity * 0xffffffffU);
        xcb_change_property(x.get(), XCB_PROP_MODE_REPLACE, id, x.atom("_NET_WM_WINDOW_OPACITY"),
            XCB_ATOM_CARDINAL, 32, 1, &value);
    }
    void setInputShape(xcb_rectangle_t rectangle) const
    {
        xcb_shape_rectangles(x.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT,
            XCB_CLIP_ORDERING_UNSORTED, id, 0, 0, 1, &rectangle);
    }
    void show() const
    {
        xcb_map_window(x.get(), id);
        x.sync();
    }
    xcb_window_t window() const { return id; }

private:
    const XConnection& x;
    xcb_window_t id;
};

class HarnessTest : public testing::TestWithParam<WindowManagerSetup> {
protected:
    static void TearDownTestSuite() { DesktopSession::dropShared(); }

    DesktopSession& session = DesktopSession::shared(GetParam());
    XConnection x{session.displayName()};
    Keyboard keyboard{x};
    Mouse mouse{x};
};

TEST_P(HarnessTest, show_fullScreenProbe_coversScreenAndHasKeyboard)
{
    ProbeWindow probe(session.displayName());
    probe.show();
    keyboard.tap(KeyCode::a);

    EXPECT_TRUE(waitUntil([&] { return probe.receivedKey(KeyCode::a); }));
    EXPECT_EQ(areaOf(x, probe.window()), x.screenArea());
    EXPECT_TRUE(waitUntil([&] { return colorAt(x, {5, 5}) == blue; }));
    EXPECT_EQ(colorAt(x, {1275, 795}), blue);
}

TEST_P(HarnessTest, stackingOrder_unmanagedWindowOverFullScreen_isAboveAndSeen)
{
    ProbeWindow probe(session.displayName());
    probe.show();
    const UnmanagedWindow window(x, {100, 100, 200, 100}, red);
    window.show();

    EXPECT_TRUE(waitUntil([&] { return isAbove(x, window.window(), probe.window()); }));
    EXPECT_TRUE(waitUntil([&] {
        return colorAt(x, {200, 150}) == red;
    })) << colorAt(x, {200, 150}).name().toStdString();
    EXPECT_TRUE(waitUntil([&] { return colorAt(x, {600, 400}) == blue; }));
    EXPECT_FALSE(isAbove(x, probe.window(), window.window()));
    EXPECT_TRUE(holdsFor([&] { return probe.hasFocus(); }, moment));
    EXPECT_EQ(probe.focusLosses(), 0);
}

TEST_P(HarnessTest, opacity_halfOverBlue_isBlendedWhereComposited)
{
    ProbeWindow probe(session.displayName());
    probe.show();
    const UnmanagedWindow window(x, {100, 100, 200, 100}, red);
    window.setOpacity(0.5);
    window.show();
    const bool isComposited = traits(GetParam()).isComposited;
    const auto expected = isComposited ? blended(red, 0.5, blue) : red;

    EXPECT_TRUE(waitUntil([&] {
        return isNear(colorAt(x, {200, 150}), expected, 2);
    })) << colorAt(x, {200, 150}).name().toStdString();
}

TEST_P(HarnessTest, grabKey_probeFocused_keyGoesToGrabberAndFocusStays)
{
    ProbeWindow probe(session.displayName());
    probe.show();
    ProbeWindow grabber(session.displayName());
    ASSERT_TRUE(grabber.grabKey(KeyCode::g, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));
    EXPECT_FALSE(probe.grabKey(KeyCode::g, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT));

    keyboard.chord({KeyCode::leftShift, KeyCode::leftSuper}, KeyCode::g);
    EXPECT_TRUE(waitUntil([&] { return grabber.receivedKey(KeyCode::g); }));
    keyboard.tap(KeyCode::g);
    EXPECT_TRUE(waitUntil([&] { return probe.receivedKey(KeyCode::g); }));
    EXPECT_EQ(probe.focusLosses(), 0);
    EXPECT_EQ(std::count(probe.pressedKeys().begin(), probe.pressedKeys().end(), KeyCode::g), 1);
}

TEST_P(HarnessTest, activate_otherProbe_movesKeyboardAndIsRecorded)
{
    ProbeWindow first(session.displayName());
    first.show();
    ProbeWindow second(session.displayName(), {false, {300, 300, 300, 200}, red});
    second.open();
    second.activate();
    ASSERT_TRUE(waitUntil([&] { return second.hasFocus(); }));
    EXPECT_GE(first.focusLosses(), 1);
    keyboard.tap(KeyCode::a);
    EXPECT_TRUE(waitUntil([&] { return second.receivedKey(KeyCode::a); }));
    EXPECT_FALSE(first.receivedKey(KeyCode::a));
}

TEST_P(HarnessTest, click_onProbe_isReceivedThere)
{
    ProbeWindow probe(session.displayName());
    probe.show();
    mouse.click({640, 400});
    EXPECT_TRUE(waitUntil([&] { return probe.buttonPresses() == 1; }));
}

TEST_P(HarnessTest, click_besideInputShape_reachesWindowBelow)
{
    ProbeWindow probe(session.displayName());
    probe.show();
    const UnmanagedWindow window(x, {100, 100, 200, 100}, red);
    window.setInputShape({20, 10, 160, 70});
    window.show();
    ASSERT_TRUE(waitUntil([&] { return isViewable(x, window.window()); }));
    EXPECT_EQ(inputAreaOf(x, window.window()), (Area{120, 110, 160, 70}));

    mouse.click({121, 111});
    mouse.click({105, 105});
    EXPECT_TRUE(waitUntil([&] { return probe.buttonPresses() == 1; }));
    EXPECT_EQ(inputAreaOf(x, probe.window()), x.screenArea());
}

TEST_P(HarnessTest, type_mixedText_pressesKeysOfTheLayout)
{
    ProbeWindow probe(session.displayName());
    probe.show();
    keyboard.type("gO\n");
    const std::vector<xcb_keycode_t> expected{
        KeyCode::g, KeyCode::leftShift, KeyCode::o, KeyCode::returnKey};
    EXPECT_TRUE(waitUntil([&] { return probe.pressedKeys() == expected; }));
}

TEST_P(HarnessTest, setLock_onAndOff_changesModifierState)
{
    const auto isLocked = [&] {
        const XOwned<xcb_query_pointer_reply_t> state(
            xcb_query_pointer_reply(x.get(), xcb_query_pointer(x.get(), x.root()), nullptr));
        return (state->mask & XCB_MOD_MASK_LOCK) != 0;
    };
    keyboard.setLock(KeyCode::capsLock, XCB_MOD_MASK_LOCK, true);
    EXPECT_TRUE(waitUntil(isLocked));
    keyboard.setLock(KeyCode::capsLock, XCB_MOD_MASK_LOCK, false);
    EXPECT_TRUE(waitUntil([&] { return !isLocked(); }));
}

TEST_P(HarnessTest, findWindow_byClassAndRole_findsManagedOnesToo)
{
    ProbeWindow probe(session.displayName());
    EXPECT_EQ(findWindow(x, {"Probe", ""}), probe.window());
    probe.show();
    EXPECT_EQ(findWindow(x, {"Probe", ""}), probe.window());
    EXPECT_EQ(findWindow(x, {"Probe", "overlay"}), std::nullopt);
}

TEST_P(HarnessTest, switchToWorkspace_another_hidesProbeThere)
{
    if (!traits(GetParam()).isManaged)
        return;
    ProbeWindow probe(session.displayName());
    probe.show();
    session.windowManager().switchToWorkspace(1);
    // mutter keeps it mapped and only shows it no more.
    EXPECT_TRUE(waitUntil([&] {
        return !isViewable(x, probe.window()) || colorAt(x, {640, 400}) != blue;
    }));
    session.windowManager().switchToWorkspace(0);
    EXPECT_TRUE(waitUntil([&] { return isViewable(x, probe.window()); }));
}

std::string setupName(const testing::TestParamInfo<WindowManagerSetup>& info)
{
    return traits(info.param).name;
}

INSTANTIATE_TEST_SUITE_P(Everyday, HarnessTest, testing::ValuesIn(everydaySetups()), setupName);
INSTANTIATE_TEST_SUITE_P(Further, HarnessTest, testing::ValuesIn(furtherSetups()), setupName);

TEST(ChildProcessTest, waitForExit_endsByItself_givesStatusAndOutput)
{
    const PrivateHome home;
    ChildProcess process(
        {{"sh", "-c", "echo out; echo err >&2; exit 3"}, home.environment(), home.path() / "log"});
    const auto status = process.waitForExit();
    ASSERT_TRUE(status);
    EXPECT_EQ(WEXITSTATUS(*status), 3);
    EXPECT_EQ(process.output(), "out\nerr\n");
}

TEST(ChildProcessTest, create_noSuchProgram_exitsWith127)
{
    const PrivateHome home;
    ChildProcess process({{"no-such-program"}, home.environment(), home.path() / "log"});
    const auto status = process.waitForExit();
    ASSERT_TRUE(status);
    EXPECT_EQ(WEXITSTATUS(*status), 127);
}

TEST(ChildProcessTest, parentDies_childDiesToo)
{
    const PrivateHome home;
    const auto pidFile = home.path() / "pid";
    const pid_t parent = fork();
    ASSERT_GE(parent, 0);
    if (parent == 0) {
        const ChildProcess child({{"sleep", "600"}, home.environment(), home.path() / "log"});
        std::ofstream(pidFile) << child.pid() << std::flush;
        ::kill(getpid(), SIGKILL);
    }
    waitpid(parent, nullptr, 0);
    pid_t child = 0;
    std::ifstream(pidFile) >> child;
    ASSERT_GT(child, 0);
    EXPECT_TRUE(waitUntil([&] { return ::kill(child, 0) != 0; }));
}

TEST(PrivateHomeTest, write_notesAndSettings_readBack)
{
    const PrivateHome home;
    EXPECT_EQ(home.readNotes(), std::nullopt);
    const QJsonArray notes{noteRecord(7, QStringLiteral("Title"), QStringLiteral("# Title"))};
    home.writeNotes(notes);
    home.writeSettings(defaultSettings());
    EXPECT_EQ(home.readNotes(), notes);
    EXPECT_EQ(home.readSettings(), defaultSettings());
    EXPECT_EQ(notes[0][u"id"].toString(), QStringLiteral("0B6C2D5E-0000-4000-8000-000000000007"));
}

TEST(PrivateHomeTest, destroy_filesWritten_removesFolder)
{
    std::filesystem::path path;
    {
        const PrivateHome home;
        path = home.path();
        home.writeNotes({});
        EXPECT_TRUE(std::filesystem::exists(home.storageFolder() / "notes.json"));
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST(WaitTest, waitUntil_neverTrue_givesNothingAfterDeadline)
{
    EXPECT_EQ(waitUntil([] { return false; }, Milliseconds(20)), std::nullopt);
    int asked = 0;
    EXPECT_TRUE(waitUntil([&] { return ++asked == 3; }));
    EXPECT_FALSE(holdsFor([&] { return ++asked < 6; }, moment));
}

class ProgramUnderTestTest : public testing::Test {
protected:
    static void TearDownTestSuite() { DesktopSession::dropShared(); }

    static void runWith(const std::string& script)
    {
        const PrivateHome user;
        ProgramUnderTest program(
            {"sh", "-c", script}, DesktopSession::shared(WindowManagerSetup::none), user);
        waitUntil([&] { return std::filesystem::exists(user.path() / "ready"); });
        program.terminate();
    }
};

TEST_F(ProgramUnderTestTest, destroy_lineNotExpected_failsTest)
{
    EXPECT_NONFATAL_FAILURE(
        runWith("echo oops >&2; touch $HOME/ready; exec sleep 60"), "printed: oops");
}

TEST_F(ProgramUnderTestTest, destroy_endedByItself_failsTest)
{
    EXPECT_NONFATAL_FAILURE(
        {
            const PrivateHome user;
            ProgramUnderTest program(
                {"true"}, DesktopSession::shared(WindowManagerSetup::none), user);
            waitUntil([&] { return !program.isRunning(); });
        },
        "ended by itself");
}

TEST_F(ProgramUnderTestTest, printsLineWith_expectedLine_passes)
{
    const PrivateHome user;
    ProgramUnderTest program({"sh", "-c", "echo known trouble >&2; exec sleep 60"},
        DesktopSession::shared(WindowManagerSetup::none), user);
    EXPECT_TRUE(program.printsLineWith("known"));
    EXPECT_TRUE(waitUntil([&] { return countersOf(program.pid()).residentKiB > 100; }));
    const auto status = program.terminate();
    ASSERT_TRUE(status);
    EXPECT_EQ(WTERMSIG(*status), SIGTERM);
}

} // namespace
} // namespace sablequill
