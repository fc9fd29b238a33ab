// SPDX-License-Identifier: MIT
#include "HyprlandPin.h"

#include "BusConnection.h"
#include "HyprlandStub.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

const QByteArray panelAddress = "0x5a1";
const QByteArray title = "Sablequill";

class HyprlandPinTest : public testing::Test {
protected:
    static constexpr HyprlandPin::Times quick{
        .retry = Milliseconds(5), .longest = Milliseconds(8000)};
    static constexpr HyprlandPin::Times brief{
        .retry = Milliseconds(5), .longest = Milliseconds(40)};

    static qint64 ownPid() { return QCoreApplication::applicationPid(); }
    void listPanel() { hyprland.windows.push_back({panelAddress, ownPid(), title}); }

    bool isPinned(const QByteArray& address) const
    {
        return std::any_of(
            hyprland.windows.begin(), hyprland.windows.end(), [&](const HyprlandWindow& window) {
                return window.address == address && window.isPinned;
            });
    }

    bool becomesPinned(const QByteArray& address)
    {
        return runUntil([&] { return isPinned(address); });
    }

    /// Whether the list is asked for that often.
    bool lists(int count)
    {
        return runUntil([&] { return hyprland.requests.count("j/clients") >= count; });
    }

    PrivateHome home;
    const QString path = QString::fromStdString((home.runtimeFolder() / "h.sock").string());
    HyprlandStub hyprland{path};
};

class HyprlandPinFormTest : public HyprlandPinTest, public testing::WithParamInterface<int> { };

TEST_P(HyprlandPinFormTest, pinPanels_each_onlyPanelsOfOursArePinned)
{
    hyprland.form = GetParam();
    hyprland.windows = {{"0x1", ownPid() + 1, title}, {"0x2", ownPid(), "Sablequill Settings"}};
    listPanel();
    hyprland.windows.push_back({"0x3", ownPid(), title});
    HyprlandPin pin(path, quick);
    pin.pinPanels();
    EXPECT_TRUE(becomesPinned(panelAddress));
    EXPECT_TRUE(becomesPinned("0x3"));
    EXPECT_FALSE(isPinned("0x1"));
    EXPECT_FALSE(isPinned("0x2"));
}

INSTANTIATE_TEST_SUITE_P(Each, HyprlandPinFormTest, testing::Values(0, 1));

TEST_F(HyprlandPinTest, pinPanels_panelComesLater_isPinnedThen)
{
    HyprlandPin pin(path, quick);
    pin.pinPanels();
    ASSERT_TRUE(lists(3));
    listPanel();
    EXPECT_TRUE(becomesPinned(panelAddress));
}

TEST_F(HyprlandPinTest, pinPanels_alreadyPinned_staysSo)
{
    listPanel();
    hyprland.windows.back().isPinned = true;
    HyprlandPin pin(path, quick);
    pin.pinPanels();
    ASSERT_TRUE(lists(4));
    EXPECT_TRUE(isPinned(panelAddress));
    for (const QByteArray& request : hyprland.requests)
        EXPECT_EQ(request, "j/clients");
}

TEST_F(HyprlandPinTest, pinPanels_neitherFormIsUnderstood_asksSomeTimesAndLeavesIt)
{
    hyprland.form = -1;
    listPanel();
    HyprlandPin pin(path, brief);
    pin.pinPanels();
    // At once, and after 5, 10, 20 and 40 ms; each time both forms follow.
    EXPECT_TRUE(runUntil([&] { return hyprland.requests.size() == 15; }));
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.size() == 15; }, Milliseconds(200)));
    EXPECT_FALSE(isPinned(panelAddress));
}

TEST_F(HyprlandPinTest, pinPanels_compositorAnswersLate_isPinnedThen)
{
    listPanel();
    hyprland.isFrozen = true;
    HyprlandPin pin(path, brief);
    pin.pinPanels();
    ASSERT_TRUE(lists(1));
    pin.pinPanels();
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.size() == 1; }, Milliseconds(150)));
    hyprland.unfreeze();
    EXPECT_TRUE(becomesPinned(panelAddress));
}

} // namespace
} // namespace sablequill
