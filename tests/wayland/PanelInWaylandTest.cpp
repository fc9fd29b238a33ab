// SPDX-License-Identifier: MIT
#include "Overlay.h"
#include "ProgramUnderTest.h"
#include "WaylandSession.h"
#include "Windows.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include <sys/stat.h>
#include <sys/wait.h>

namespace sablequill {
namespace {

constexpr Milliseconds watchTime{500};

/// The built program over a focused full-screen Wayland client.
class PanelInWaylandTest : public testing::TestWithParam<Compositor> {
protected:
    static constexpr Area savedCard{200, 150, 420, 280};
    static constexpr Point elsewhere{1000, 700};

    static void TearDownTestSuite() { shared().reset(); }

    static std::unique_ptr<WaylandSession>& shared()
    {
        static std::unique_ptr<WaylandSession> session;
        return session;
    }

    static WaylandSession& sessionOf(Compositor compositor)
    {
        if (!shared() || shared()->kind() != compositor) {
            shared().reset();
            shared() = std::make_unique<WaylandSession>(compositor);
        }
        return *shared();
    }

    void SetUp() override
    {
        user.writeNotes({noteRecord(1, QStringLiteral("First"), QStringLiteral("First"))});
        auto settings = defaultSettings();
        settings[u"overlayFrame"] = QJsonObject{
            {QStringLiteral("x"), savedCard.x},
            {QStringLiteral("y"), x.screenArea().height - savedCard.bottom()},
            {QStringLiteral("width"), savedCard.width},
            {QStringLiteral("height"), savedCard.height},
        };
        user.writeSettings(settings);
        auto environment = session.environment(user);
        environment["QT_QPA_PLATFORM"] = "wayland";
        client = std::make_unique<ChildProcess>(
            ChildProcessDescription{{FULL_SCREEN_CLIENT}, environment, user.path() / "client.log"});
        ASSERT_TRUE(waitUntil([&] { return clientGot("focus in") > clientGot("focus out"); }))
            << client->output();
        expectTypingReachesClient();
        startPortal();
        startProgram();
    }

    /// The session has none of its own.
    void startPortal()
    {
        const std::string orders = user.path() / "orders";
        ASSERT_EQ(mkfifo(orders.c_str(), S_IRUSR | S_IWUSR), 0);
        // Open for reading too: that waits for nobody.
        portalInput.open(orders);
        portal = std::make_unique<ChildProcess>(
            ChildProcessDescription{{"sh", "-c", "exec '" PORTAL_STUB "' <'" + orders + "'"},
                session.environment(user), user.path() / "portal.log"});
    }

    void startProgram()
    {
        ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
        program = std::make_unique<ProgramUnderTest>(
            std::vector<std::string>{SABLEQUILL_BINARY}, session.environment(user), user);
        ASSERT_TRUE(waitUntil([&] { return overlay.isShown() || !program->isRunning(); }));
        ASSERT_TRUE(program->isRunning());
        ASSERT_TRUE(waitUntil([&] { return overlay.card() == savedCard; })) << overlay.card();
        expectPointerReachesOverlay(overlay.contentBackground());
    }

    /// The compositor knows of a window some time after the X server.
    void expectPointerReachesOverlay(Point point)
    {
        bool isThere = false;
        EXPECT_TRUE(waitUntil([&] {
            isThere = !isThere;
            session.input().moveTo({point.x + (isThere ? 1 : 0), point.y});
            return pointerIsInOverlay();
        })) << "lies below, or takes no pointer";
    }

    /// As X clients see it: nowhere while the pointer is in a Wayland window.
    bool pointerIsInOverlay() const
    {
        const XOwned<xcb_query_pointer_reply_t> reply(
            xcb_query_pointer_reply(x.get(), xcb_query_pointer(x.get(), x.root()), nullptr));
        return reply && overlay.window() && reply->child == topLevelOf(x, *overlay.window());
    }

    void endProgram()
    {
        const auto status = program->terminate();
        ASSERT_TRUE(status);
        EXPECT_TRUE(WIFEXITED(*status));
        program.reset();
    }

    /// Lets the desktop's portal report the keys of an action as pressed.
    void pressKeysOf(const std::string& action)
    {
        const std::string done = "activated " + action + '\n';
        const auto isHeld = [&] { return portalPrinted(action + '='); };
        ASSERT_TRUE(waitUntil(isHeld)) << portal->output();
        portalInput << "activate " << action << std::endl;
        EXPECT_TRUE(waitUntil([&] { return portalPrinted(done); })) << portal->output();
    }

    bool portalPrinted(const std::string& text) const
    {
        return portal->output().find(text) != std::string::npos;
    }

    void quickOpen()
    {
        pressKeysOf("quickOpen");
        ASSERT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    }

    QString savedContent() const
    {
        return user.readNotes().value_or(QJsonArray())[0].toObject()[u"content"].toString();
    }

    /// Shows the popover, as a second start of the program does.
    void startAgain()
    {
        ChildProcess second(
            {{SABLEQUILL_BINARY}, session.environment(user), user.path() / "second.log"});
        EXPECT_EQ(second.waitForExit(), 0);
    }

    /// How many such lines the client has printed.
    int clientGot(const std::string& line) const
    {
        std::istringstream lines(client->output());
        int count = 0;
        for (std::string printed; std::getline(lines, printed);)
            count += printed == line ? 1 : 0;
        return count;
    }

    /// Types a key that the panel does nothing for while it shows a note.
    void expectTypingReachesClient()
    {
        const std::string line = "key " + std::to_string(EvdevKey::z);
        const int before = clientGot(line);
        EXPECT_TRUE(waitUntil([&] {
            session.input().tap(EvdevKey::z);
            return clientGot(line) > before;
        })) << client->output();
    }

    void expectTypingDoesNotReachClient()
    {
        const std::string line = "key " + std::to_string(EvdevKey::q);
        const int before = clientGot(line);
        session.input().tap(EvdevKey::q);
        EXPECT_TRUE(holdsFor([&] { return clientGot(line) == before; }, watchTime));
    }

    /// A click that lands on the panel does not land on the client.
    void expectClickStaysOffClient(Point point)
    {
        const int before = clientGot("press");
        session.input().click(point);
        EXPECT_TRUE(holdsFor([&] { return clientGot("press") == before; }, watchTime));
    }

    void clickClient()
    {
        const int before = clientGot("press");
        session.input().click(elsewhere);
        EXPECT_TRUE(waitUntil([&] { return clientGot("press") > before; }));
    }

    std::optional<Area> savedFrame() const
    {
        const auto frame = user.readSettings().value_or(QJsonObject())[u"overlayFrame"].toObject();
        if (frame.isEmpty())
            return std::nullopt;
        const int height = frame[u"height"].toInt();
        return Area{frame[u"x"].toInt(), x.screenArea().height - frame[u"y"].toInt() - height,
            frame[u"width"].toInt(), height};
    }

    void expectCard(Area expected)
    {
        EXPECT_TRUE(waitUntil([&] { return overlay.card() == expected; })) << overlay.card();
        EXPECT_TRUE(waitUntil([&] { return savedFrame() == expected; }));
    }

    WaylandSession& session = sessionOf(GetParam());
    PrivateHome user;
    XConnection x{session.displayName()};
    Overlay overlay{x};
    PanelOnScreen popover{x, "popover"};
    std::fstream portalInput;
    std::unique_ptr<ChildProcess> client;
    std::unique_ptr<ChildProcess> portal;
    std::unique_ptr<ProgramUnderTest> program;
};

TEST_P(PanelInWaylandTest, show_fullScreenClientFocused_takesNoFocus)
{
    EXPECT_FALSE(overlay.hasKeyboard());
    expectTypingReachesClient();
}

TEST_P(PanelInWaylandTest, show_fullScreenClientFocused_liesAbove)
{
    expectClickStaysOffClient(overlay.contentBackground());
    clickClient();
    expectClickStaysOffClient(overlay.contentBackground());
}

TEST_P(PanelInWaylandTest, click_onCardAndElsewhere_movesTheKeyboard)
{
    session.input().click(overlay.contentBackground());
    EXPECT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    expectTypingDoesNotReachClient();
    clickClient();
    expectTypingReachesClient();
    EXPECT_FALSE(overlay.hasKeyboard());
}

TEST_P(PanelInWaylandTest, hide_overlayHasKeyboard_givesItBack)
{
    session.input().click(overlay.contentBackground());
    ASSERT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); }));
    session.input().click(overlay.hideButton());
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    expectTypingReachesClient();
}

TEST_P(PanelInWaylandTest, secondStart_clientFocused_popoverTakesTheKeyboard)
{
    startAgain();
    ASSERT_TRUE(waitUntil([&] { return popover.isShown(); }));
    EXPECT_TRUE(waitUntil([&] {
        session.input().tap(EvdevKey::escape);
        return !popover.isShown();
    })) << "by no click, and no key";
    expectTypingReachesClient();
}

TEST_P(PanelInWaylandTest, quickOpen_clientFocused_takesTheKeyboardIntoTheEditor)
{
    quickOpen();
    session.input().tap(EvdevKey::a);
    EXPECT_TRUE(waitUntil([&] { return savedContent().contains(u'a'); }));
    EXPECT_EQ(clientGot("key " + std::to_string(EvdevKey::a)), 0);
}

TEST_P(PanelInWaylandTest, toggle_afterQuickOpen_givesTheKeyboardBack)
{
    quickOpen();
    pressKeysOf("toggleOverlay");
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    expectTypingReachesClient();
}

TEST_P(PanelInWaylandTest, quickOpen_popoverHasTheKeyboard_takesItThenGivesItToTheClient)
{
    startAgain();
    ASSERT_TRUE(waitUntil([&] { return popover.hasKeyboard(); }));
    quickOpen();
    EXPECT_TRUE(waitUntil([&] { return !popover.isShown(); }));
    session.input().tap(EvdevKey::a);
    EXPECT_TRUE(waitUntil([&] { return savedContent().contains(u'a'); }));
    pressKeysOf("toggleOverlay");
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    expectTypingReachesClient();
}

TEST_P(PanelInWaylandTest, click_elsewhereAfterQuickOpen_givesTheKeyboardBack)
{
    quickOpen();
    clickClient();
    expectTypingReachesClient();
    EXPECT_FALSE(overlay.hasKeyboard());
}

TEST_P(PanelInWaylandTest, toggle_twice_liesAboveAgainWithoutTheKeyboard)
{
    pressKeysOf("toggleOverlay");
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    session.input().moveTo(elsewhere);
    pressKeysOf("toggleOverlay");
    ASSERT_TRUE(waitUntil([&] { return overlay.isShown(); }));
    EXPECT_EQ(overlay.card(), savedCard);
    expectTypingReachesClient();
    expectPointerReachesOverlay(overlay.contentBackground());
    expectClickStaysOffClient(overlay.contentBackground());
}

TEST_P(PanelInWaylandTest, drag_backgroundAndCorner_moveAndResize)
{
    const Point from = overlay.headerBackground();
    session.input().drag(from, {from.x + 60, from.y + 40});
    Area expected{savedCard.x + 60, savedCard.y + 40, savedCard.width, savedCard.height};
    expectCard(expected);
    const Point corner{expected.right() - 7, expected.bottom() - 7};
    expectPointerReachesOverlay(corner);
    session.input().drag(corner, {corner.x + 50, corner.y + 30});
    expected.width += 50;
    expected.height += 30;
    expectCard(expected);
}

TEST_P(PanelInWaylandTest, restart_threeTimes_isExactlyWhereItWas)
{
    for (int restart = 0; restart < 3; ++restart) {
        endProgram();
        EXPECT_EQ(savedFrame(), savedCard);
        startProgram();
        EXPECT_TRUE(holdsFor([&] { return overlay.card() == savedCard; }, watchTime));
        expectClickStaysOffClient({savedCard.x + 12, savedCard.bottom() - 60});
    }
}

TEST_P(PanelInWaylandTest, switchWorkspace_shown_isThereToo)
{
    session.switchToWorkspace(x, 1);
    const Point point = overlay.contentBackground();
    expectPointerReachesOverlay(point);
    session.input().click(point);
    EXPECT_TRUE(waitUntil([&] { return overlay.hasKeyboard(); })) << "takes a click there";
    session.switchToWorkspace(x, 0);
    expectPointerReachesOverlay(point);
    expectClickStaysOffClient(point);
}

INSTANTIATE_TEST_SUITE_P(Compositors, PanelInWaylandTest,
    testing::Values(Compositor::kwin, Compositor::mutter),
    [](const auto& info) { return nameOf(info.param); });

} // namespace
} // namespace sablequill
