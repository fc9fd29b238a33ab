// SPDX-License-Identifier: MIT
#include "ManagedKeeper.h"

#include "BusConnection.h"
#include "StubWindowManager.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr Milliseconds watchTime{300};

/// A panel's window with its keeper, and a manager that may be slow.
class ManagedKeeperTest : public testing::Test {
protected:
    ManagedKeeperTest() { window.resize(200, 100); }

    void show()
    {
        keeper.willShow(window);
        window.show();
        keeper.didShow(window);
    }

    void hide()
    {
        keeper.willHide();
        window.hide();
    }

    bool becomes(const std::function<bool()>& condition)
    {
        return runUntil([&] {
            manager.work();
            return condition();
        });
    }

    bool stays(const std::function<bool()>& condition)
    {
        return runWhile(
            [&] {
                manager.work();
                return condition();
            },
            watchTime);
    }

    bool isOnScreen() const { return server.isViewable(static_cast<xcb_window_t>(window.winId())); }

    XServer server;
    PressWatch presses{server};
    StubWindowManager manager;
    QWidget window{nullptr, Qt::Window | Qt::FramelessWindowHint};
    ManagedKeeper keeper{server, presses, nullptr, std::nullopt};
};

TEST_F(ManagedKeeperTest, hide_beforeTheManagerShowedIt_isNotOnTheScreenInTheEnd)
{
    manager.isBusy = true;
    show();
    ASSERT_TRUE(becomes([&] { return manager.hasNewWindow(); }));
    hide();
    manager.isBusy = false;
    EXPECT_TRUE(becomes([&] { return !manager.managed.empty() && manager.isIdle(); }));
    EXPECT_TRUE(becomes([&] { return !isOnScreen(); }));
    EXPECT_TRUE(stays([&] { return !isOnScreen(); }));
}

TEST_F(ManagedKeeperTest, show_againBeforeTheManagerShowedIt_isOnTheScreenInTheEnd)
{
    manager.isBusy = true;
    show();
    ASSERT_TRUE(becomes([&] { return manager.hasNewWindow(); }));
    hide();
    show();
    manager.isBusy = false;
    EXPECT_TRUE(becomes([&] { return manager.isIdle() && isOnScreen(); }));
    EXPECT_TRUE(stays([&] { return isOnScreen(); }));
}

TEST_F(ManagedKeeperTest, show_afterHiding_isOnTheScreen)
{
    for (int round = 0; round < 3; ++round) {
        show();
        EXPECT_TRUE(becomes([&] { return manager.isIdle() && isOnScreen(); }));
        hide();
        EXPECT_TRUE(becomes([&] { return manager.isIdle() && !isOnScreen(); }));
    }
}

} // namespace
} // namespace sablequill
