// SPDX-License-Identifier: MIT
#include "KeyboardClaim.h"

#include "BusConnection.h"
#include "StubWindowManager.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr Milliseconds watchTime{600};

/// A panel that the manager does not make active by itself.
class KeyboardClaimTest : public testing::Test {
protected:
    KeyboardClaimTest()
    {
        manager.activatesNew = false;
        panel.resize(200, 100);
        panel.show();
        id = static_cast<xcb_window_t>(panel.winId());
        EXPECT_TRUE(becomes([&] { return !manager.managed.empty() && manager.isIdle(); }));
        EXPECT_TRUE(manager.isClientActive());
        manager.activatesNew = true;
    }

    ~KeyboardClaimTest() override
    {
        claim.stop();
        panel.hide();
        EXPECT_TRUE(becomes([&] { return !helper() && manager.isIdle(); }));
    }

    void work()
    {
        manager.work();
        // What was left to the main loop by the test itself, not from within that loop.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    bool becomes(const std::function<bool()>& condition)
    {
        return runUntil([&] {
            work();
            return condition();
        });
    }

    bool stays(const std::function<bool()>& condition)
    {
        return runWhile(
            [&] {
                work();
                return condition();
            },
            watchTime);
    }

    QWidget* helper() const
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window != &panel)
                return window;
        return nullptr;
    }

    bool isSettled() { return manager.isActive(id) && panel.isActiveWindow() && !helper(); }

    XServer server;
    StubWindowManager manager;
    QWidget panel;
    xcb_window_t id = noWindow;
    KeyboardClaim claim{server};
};

TEST_F(KeyboardClaimTest, start_managerGrants_noOtherWindowIsNeeded)
{
    claim.start(id);
    EXPECT_TRUE(becomes([&] { return isSettled(); }));
    EXPECT_TRUE(stays([&] { return isSettled(); }));
    EXPECT_EQ(manager.managed.size(), 1U);
    EXPECT_EQ(manager.requests, 1);
}

TEST_F(KeyboardClaimTest, start_hasTheKeyboard_asksForNothing)
{
    claim.start(id);
    ASSERT_TRUE(becomes([&] { return isSettled(); }));
    claim.start(id);
    EXPECT_TRUE(stays([&] { return isSettled(); }));
    EXPECT_EQ(manager.requests, 1);
}

TEST_F(KeyboardClaimTest, start_managerRefusesThePanel_newWindowHandsTheKeyboardOn)
{
    manager.grantsRequests = false;
    manager.followsFocus = true;
    claim.start(id);
    EXPECT_TRUE(becomes([&] { return manager.managed.size() == 2; }));
    EXPECT_TRUE(becomes([&] { return isSettled(); }));
    EXPECT_TRUE(stays([&] { return isSettled(); }));
}

TEST_F(KeyboardClaimTest, start_managerIsSlow_panelIsActiveAfterTheNewWindow)
{
    manager.isBusy = true;
    claim.start(id);
    ASSERT_TRUE(becomes([&] { return manager.hasNewWindow(); }));
    manager.isBusy = false;
    ASSERT_TRUE(becomes([&] { return manager.isActive(id); }));
    manager.isBusy = true;
    ASSERT_TRUE(becomes([&] { return panel.isActiveWindow(); }));
    EXPECT_TRUE(stays([&] { return helper(); })) << "is made active yet";
    manager.isBusy = false;
    EXPECT_TRUE(becomes([&] { return manager.managed.size() == 2; }));
    EXPECT_TRUE(becomes([&] { return isSettled(); }));
    EXPECT_TRUE(stays([&] { return isSettled(); }));
}

TEST_F(KeyboardClaimTest, start_managerIsSlowAndRefusesTheNewWindow_panelStaysActive)
{
    manager.isBusy = true;
    manager.activatesNew = false;
    claim.start(id);
    ASSERT_TRUE(becomes([&] { return manager.hasNewWindow(); }));
    manager.isBusy = false;
    EXPECT_TRUE(becomes([&] { return isSettled(); }));
    EXPECT_TRUE(stays([&] { return isSettled(); }));
}

TEST_F(KeyboardClaimTest, start_managerRefusesEverything_leavesItInTheEnd)
{
    manager.grantsRequests = manager.activatesNew = false;
    claim.start(id);
    ASSERT_TRUE(becomes([&] { return manager.managed.size() == 2; }));
    EXPECT_TRUE(becomes([&] { return !helper(); }));
    EXPECT_TRUE(stays([&] { return manager.isClientActive() && !helper(); }));
    EXPECT_EQ(manager.requests, 1);
}

TEST_F(KeyboardClaimTest, start_again_asksAgainWithTheSameNewWindow)
{
    manager.grantsRequests = manager.activatesNew = false;
    claim.start(id);
    ASSERT_TRUE(becomes([&] { return manager.managed.size() == 2; }));
    manager.grantsRequests = true;
    claim.start(id);
    EXPECT_TRUE(becomes([&] { return isSettled(); }));
    EXPECT_EQ(manager.managed.size(), 2U);
}

TEST_F(KeyboardClaimTest, stop_newWindowIsShown_takesItAway)
{
    manager.grantsRequests = manager.activatesNew = false;
    claim.start(id);
    ASSERT_TRUE(becomes([&] { return manager.managed.size() == 2; }));
    claim.stop();
    EXPECT_TRUE(becomes([&] { return !helper(); }));
    EXPECT_TRUE(stays([&] { return manager.isClientActive(); }));
}

} // namespace
} // namespace sablequill
