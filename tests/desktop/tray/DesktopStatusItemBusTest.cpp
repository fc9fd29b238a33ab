// SPDX-License-Identifier: MIT
#include "BusTest.h"
#include "DesktopStatusItem.h"
#include "SilentWatcher.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

namespace sablequill {
namespace {

/// Without a display: what concerns the session bus alone.
class DesktopStatusItemBusTest : public BusTest {
protected:
    StatusItemDescription description()
    {
        QPixmap pixmap(48, 48);
        pixmap.fill(Qt::red);
        return {QStringLiteral("Sablequill"), QIcon(pixmap),
            [this](const StatusItemAnchor& anchor) { anchors.push_back(anchor); },
            {{QStringLiteral("Quit Sablequill"), [this] { isQuit = true; }}}};
    }

    /// The anchor that came with a click at the native place given.
    StatusItemAnchor anchorOfClick(StatusNotifierHost& host, int x, int y)
    {
        anchors.clear();
        host.press(itemOf(host), QStringLiteral("Activate"), x, y);
        EXPECT_TRUE(runUntil([this] { return !anchors.empty(); }));
        return anchors.empty() ? std::nullopt : anchors.front();
    }

    bool isQuit = false;
    std::vector<StatusItemAnchor> anchors;
    DesktopStatusItem item{[this] { return std::optional(program.get()); }};
};

/// Points, bottom-left origin, of a place in the toolkit's coordinates.
Rect at(int x, int y)
{
    const int height = QGuiApplication::primaryScreen()->geometry().height();
    return {static_cast<double>(x), static_cast<double>(height - y), 0, 0};
}

TEST_F(DesktopStatusItemBusTest, click_withPlace_activatesThere)
{
    StatusNotifierHost host(address);
    item.show(description());
    EXPECT_EQ(item.anchor(), std::nullopt);
    EXPECT_EQ(anchorOfClick(host, 700, 10), at(700, 10));
    EXPECT_EQ(item.anchor(), at(700, 10));
}

TEST_F(DesktopStatusItemBusTest, click_hostDoesNotKnowWhere_hasNoAnchor)
{
    StatusNotifierHost host(address);
    item.show(description());
    EXPECT_NE(anchorOfClick(host, 700, 10), std::nullopt);
    EXPECT_EQ(anchorOfClick(host, 0, 0), std::nullopt);
    EXPECT_EQ(item.anchor(), std::nullopt);
}

TEST_F(DesktopStatusItemBusTest, click_onNoScreen_hasNoAnchor)
{
    StatusNotifierHost host(address);
    item.show(description());
    EXPECT_EQ(anchorOfClick(host, 5000, 10), std::nullopt);
    EXPECT_EQ(anchorOfClick(host, 10, -3), std::nullopt);
}

TEST_F(DesktopStatusItemBusTest, menuEntry_chosenInTheHost_runsItsAction)
{
    StatusNotifierHost host(address);
    item.show(description());
    host.callMenu(itemOf(host), QStringLiteral("Event"),
        {1, QStringLiteral("clicked"), QVariant::fromValue(QDBusVariant(0)), uint{0}});
    EXPECT_TRUE(runUntil([this] { return isQuit; }));
}

TEST_F(DesktopStatusItemBusTest, show_watcherNeverAnswers_returnsAtOnce)
{
    SilentWatcher watcher(address);
    QElapsedTimer time;
    time.start();
    item.show(description());
    EXPECT_EQ(item.anchor(), std::nullopt);
    // Far from the 25 seconds that a call waits for its answer.
    EXPECT_LT(time.elapsed(), 2000);
    EXPECT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
}

TEST_F(DesktopStatusItemBusTest, anchor_notShownYet_isUnknown)
{
    EXPECT_EQ(item.anchor(), std::nullopt);
}

} // namespace
} // namespace sablequill
