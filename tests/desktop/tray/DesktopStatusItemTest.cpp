// SPDX-License-Identifier: MIT
#include "DesktopStatusItem.h"
#include "BusConnection.h"
#include "Mouse.h"
#include "Printing.h"
#include "ScreenSpace.h"
#include "Screenshot.h"
#include "SilentWatcher.h"
#include "StatusNotifierHost.h"
#include "XEmbedStatusArea.h"

#include <QApplication>
#include <QDBusConnectionInterface>
#include <QPixmap>

#include <gtest/gtest.h>
#include <xcb/xtest.h>

namespace sablequill {
namespace {

const QColor red(255, 0, 0);
constexpr Milliseconds moment{150};
constexpr std::uint8_t middleButton = 2;
constexpr std::uint8_t rightButton = 3;

/// On a display without a window manager, with a session bus.
class DesktopStatusItemTest : public testing::Test {
protected:
    std::unique_ptr<XEmbedStatusArea> startStatusArea()
    {
        return std::make_unique<XEmbedStatusArea>(x, display, home);
    }

    StatusItemDescription description()
    {
        QPixmap pixmap(48, 48);
        pixmap.fill(red);
        return {QStringLiteral("Sablequill"), QIcon(pixmap),
            [this](const StatusItemAnchor& anchor) { anchors.push_back(anchor); }, {}};
    }

    std::optional<Point> iconCenter() const
    {
        const StatusItemAnchor anchor = item.anchor();
        return anchor ? std::optional(inPixels(*anchor).center()) : std::nullopt;
    }

    /// The display's own pixels.
    Area inPixels(const Rect& rect) const
    {
        const QRect area = ScreenSpace::toToolkit(rect);
        return {area.x() * scale, area.y() * scale, area.width() * scale, area.height() * scale};
    }

    /// Whether the status area shows the icon where the item says that it is.
    bool isDocked()
    {
        return runUntil([this] {
            const auto center = iconCenter();
            return center && colorAt(x, *center) == red;
        });
    }

    bool isUndocked()
    {
        return runUntil([this] { return !item.anchor(); });
    }

    bool staysUndocked()
    {
        return runWhile([this] { return !item.anchor(); }, moment);
    }

    void press(std::uint8_t button)
    {
        xcb_test_fake_input(x.get(), XCB_BUTTON_PRESS, button, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        xcb_test_fake_input(
            x.get(), XCB_BUTTON_RELEASE, button, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
        x.sync();
    }

    const std::string display = qgetenv("DISPLAY").toStdString();
    const std::string busAddress = qgetenv("DBUS_SESSION_BUS_ADDRESS").toStdString();
    /// Pixels to a point.
    const int scale = static_cast<int>(qApp->devicePixelRatio());
    const PrivateHome home;
    XConnection x{display};
    Mouse mouse{x};
    BusConnection program{busAddress};
    std::vector<StatusItemAnchor> anchors;
    DesktopStatusItem item{[this] { return std::optional(program.get()); }};
};

TEST_F(DesktopStatusItemTest, show_statusArea_docksTheIcon)
{
    const auto area = startStatusArea();
    item.show(description());
    ASSERT_TRUE(isDocked());
    const Area icon = inPixels(*item.anchor());
    EXPECT_GE(icon.x, 1280 - 60);
    EXPECT_LE(icon.right(), 1280);
    EXPECT_LE(icon.bottom(), 24);
    EXPECT_GE(icon.width, 16);
    EXPECT_GE(icon.height, 16);
}

TEST_F(DesktopStatusItemTest, show_noStatusArea_hasNoAnchorAndIsSilent)
{
    item.show(description());
    EXPECT_TRUE(staysUndocked());
}

TEST_F(DesktopStatusItemTest, show_noBus_docksTheIcon)
{
    const auto area = startStatusArea();
    DesktopStatusItem withoutBus([] { return std::nullopt; });
    withoutBus.show(description());
    EXPECT_TRUE(runUntil([&] { return withoutBus.anchor().has_value(); }));
}

TEST_F(DesktopStatusItemTest, click_eachButton_activatesAtTheIcon)
{
    const auto area = startStatusArea();
    item.show(description());
    ASSERT_TRUE(isDocked());
    const StatusItemAnchor icon = item.anchor();
    mouse.click(*iconCenter());
    EXPECT_TRUE(runUntil([this] { return anchors.size() == 1; }));
    press(middleButton);
    EXPECT_TRUE(runUntil([this] { return anchors.size() == 2; }));
    press(rightButton);
    EXPECT_TRUE(runUntil([this] { return anchors.size() == 3; }));
    EXPECT_EQ(anchors, (std::vector{icon, icon, icon}));
}

TEST_F(DesktopStatusItemTest, click_twiceInARow_activatesOnce)
{
    const auto area = startStatusArea();
    item.show(description());
    ASSERT_TRUE(isDocked());
    mouse.click(*iconCenter());
    mouse.click(*iconCenter());
    press(rightButton);
    EXPECT_TRUE(runUntil([this] { return anchors.size() >= 2; }));
    EXPECT_EQ(anchors.size(), 2U);
}

TEST_F(DesktopStatusItemTest, show_statusAreaComesLater_docksThen)
{
    item.show(description());
    ASSERT_TRUE(staysUndocked());
    const auto area = startStatusArea();
    EXPECT_TRUE(isDocked());
}

TEST_F(DesktopStatusItemTest, show_statusAreaKilledAndBack_docksAgain)
{
    auto area = startStatusArea();
    item.show(description());
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(isDocked());
        area.reset();
        ASSERT_TRUE(isUndocked());
        area = startStatusArea();
    }
    EXPECT_TRUE(isDocked());
}

TEST_F(DesktopStatusItemTest, show_bothKindsThere_onlyTheHostHasIt)
{
    const auto area = startStatusArea();
    const StatusNotifierHost host(busAddress);
    item.show(description());
    EXPECT_TRUE(runUntil([&] { return host.items().size() == 1; }));
    EXPECT_TRUE(staysUndocked());
}

TEST_F(DesktopStatusItemTest, show_hostComesAndGoes_statusAreaStepsIn)
{
    const auto area = startStatusArea();
    item.show(description());
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(isDocked());
        const StatusNotifierHost host(busAddress);
        ASSERT_TRUE(isUndocked());
        EXPECT_EQ(host.items().size(), 1U) << "no second item beside our own";
    }
}

TEST_F(DesktopStatusItemTest, show_hostComesAtTheSameMoment_onlyTheHostHasIt)
{
    const auto area = startStatusArea();
    item.show(description());
    const StatusNotifierHost host(busAddress);
    EXPECT_TRUE(runUntil([&] { return host.items().size() == 1; }));
    EXPECT_TRUE(staysUndocked());
}

TEST_F(DesktopStatusItemTest, show_hostFirstThenGone_docksInTheStatusArea)
{
    const auto area = startStatusArea();
    {
        const StatusNotifierHost host(busAddress);
        item.show(description());
        ASSERT_TRUE(runUntil([&] { return host.items().size() == 1; }));
        ASSERT_TRUE(staysUndocked());
    }
    EXPECT_TRUE(isDocked());
}

TEST_F(DesktopStatusItemTest, show_watcherWithoutHost_docks)
{
    auto environment = home.environment();
    environment["DBUS_SESSION_BUS_ADDRESS"] = busAddress;
    const ChildProcess watcher({{WATCHER_PROGRAM}, environment, home.path() / "watcher.log"});
    const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");
    ASSERT_TRUE(
        runUntil([&] { return program.get().interface()->isServiceRegistered(service).value(); }));
    const auto area = startStatusArea();
    item.show(description());
    EXPECT_TRUE(isDocked());
}

TEST_F(DesktopStatusItemTest, show_hostComesAndGoesUnderTheWatcher_statusAreaStepsIn)
{
    const auto area = startStatusArea();
    item.show(description());
    ASSERT_TRUE(isDocked());
    StatusNotifierHost watcher(busAddress, false);
    ASSERT_TRUE(runUntil([&] { return watcher.items().size() == 1; }));
    watcher.setHasHost(true);
    EXPECT_TRUE(isUndocked());
    watcher.setHasHost(false);
    EXPECT_TRUE(isDocked());
    EXPECT_EQ(watcher.items().size(), 1U);
}

TEST_F(DesktopStatusItemTest, show_watcherHangs_docksOnceItIsGone)
{
    const auto area = startStatusArea();
    SilentWatcher watcher(busAddress);
    item.show(description());
    ASSERT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
    EXPECT_TRUE(staysUndocked());
    watcher.leave();
    EXPECT_TRUE(isDocked());
}

TEST_F(DesktopStatusItemTest, anchor_afterAHostsClick_isForgottenWithTheHost)
{
    item.show(description());
    {
        const StatusNotifierHost host(busAddress);
        ASSERT_TRUE(runUntil([&] { return host.items().size() == 1; }));
        host.press(host.items().front(), QStringLiteral("Activate"), 700, 10);
        EXPECT_TRUE(runUntil([this] { return anchors.size() == 1; }));
        ASSERT_NE(anchors.front(), std::nullopt);
        EXPECT_EQ(inPixels(*anchors.front()), (Area{700, 10, 0, 0}));
        EXPECT_EQ(item.anchor(), anchors.front());
    }
    EXPECT_TRUE(isUndocked());
}

} // namespace
} // namespace sablequill
