// SPDX-License-Identifier: MIT
#include "HyprlandFocus.h"

#include "BusConnection.h"
#include "HyprlandStub.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

const QByteArray title = "Sablequill";

class HyprlandFocusTest : public testing::Test {
protected:
    static constexpr HyprlandFocus::Times quick{
        .retry = Milliseconds(5), .longest = Milliseconds(8000)};
    static constexpr HyprlandFocus::Times brief{
        .retry = Milliseconds(5), .longest = Milliseconds(40)};
    static constexpr QRect overlay{100, 80, 496, 356};
    static constexpr QRect popover{900, 0, 356, 330};

    static qint64 ownPid() { return QCoreApplication::applicationPid(); }

    void list(const QByteArray& address, const QRect& frame, const QByteArray& text = title,
        qint64 pid = ownPid())
    {
        hyprland.windows.push_back({address, pid, text, true, frame});
    }

    bool becomesFocused(const QByteArray& address)
    {
        return runUntil([&] { return hyprland.focused == address; });
    }

    PrivateHome home;
    const QString path = QString::fromStdString((home.runtimeFolder() / "h.sock").string());
    HyprlandStub hyprland{path};
};

class HyprlandFocusFormTest : public HyprlandFocusTest, public testing::WithParamInterface<int> { };

TEST_P(HyprlandFocusFormTest, focusPanel_severalWindows_itIsTheOneMeant)
{
    hyprland.form = GetParam();
    list("0x1", overlay, title, ownPid() + 1);
    list("0x2", overlay, "Sablequill Settings");
    list("0x3", popover);
    list("0x4", overlay);
    HyprlandFocus focus(path, quick);
    int done = 0;
    QObject::connect(&focus, &HyprlandFocus::focused, &focus, [&] { ++done; });
    focus.focusPanel(overlay);
    EXPECT_TRUE(becomesFocused("0x4"));
    EXPECT_TRUE(runUntil([&] { return done == 1; }));
    focus.focusPanel(popover);
    EXPECT_TRUE(becomesFocused("0x3"));
}

INSTANTIATE_TEST_SUITE_P(Each, HyprlandFocusFormTest, testing::Values(0, 1));

TEST_F(HyprlandFocusTest, focusPanel_sameSize_itIsTheNearest)
{
    list("0x1", overlay.translated(40, 0));
    list("0x2", overlay.translated(3, 2));
    list("0x3", overlay.translated(0, 30));
    HyprlandFocus focus(path, quick);
    focus.focusPanel(overlay);
    EXPECT_TRUE(becomesFocused("0x2"));
}

TEST_F(HyprlandFocusTest, focusPanel_compositorScales_itIsFound)
{
    list("0x1", popover);
    list("0x2", {67, 53, 331, 237});
    HyprlandFocus focus(path, quick);
    focus.focusPanel(overlay);
    EXPECT_TRUE(becomesFocused("0x2"));
}

TEST_F(HyprlandFocusTest, focusPanel_panelComesLater_isFocusedThenAndOnce)
{
    list("0x1", popover);
    HyprlandFocus focus(path, quick);
    focus.focusPanel(overlay);
    ASSERT_TRUE(runUntil([&] { return hyprland.requests.count("j/clients") >= 3; }));
    EXPECT_EQ(hyprland.focused, "");
    list("0x2", overlay);
    EXPECT_TRUE(becomesFocused("0x2"));
    const auto count = hyprland.requests.size();
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.size() == count; }, Milliseconds(200)));
}

TEST_F(HyprlandFocusTest, focusPanel_nothingIsUnderstood_isLeftInTheEnd)
{
    hyprland.form = -1;
    list("0x1", overlay);
    HyprlandFocus focus(path, brief);
    focus.focusPanel(overlay);
    // At once, and after 5, 10, 20 and 40 ms; each time both forms follow.
    EXPECT_TRUE(runUntil([&] { return hyprland.requests.size() == 15; }));
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.size() == 15; }, Milliseconds(200)));
    EXPECT_EQ(hyprland.focused, "");
}

TEST_F(HyprlandFocusTest, stop_answerIsOnItsWay_nothingIsFocused)
{
    list("0x1", overlay);
    hyprland.isFrozen = true;
    HyprlandFocus focus(path, quick);
    focus.focusPanel(overlay);
    ASSERT_TRUE(runUntil([&] { return hyprland.requests.size() == 1; }));
    focus.stop();
    hyprland.unfreeze();
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.size() == 1; }, Milliseconds(200)));
}

TEST_F(HyprlandFocusTest, stop_firstFormIsOnItsWay_noOtherIsTried)
{
    hyprland.form = 1;
    list("0x1", overlay);
    hyprland.isFrozen = true;
    HyprlandFocus focus(path, quick);
    focus.focusPanel(overlay);
    ASSERT_TRUE(runUntil([&] { return hyprland.requests.size() == 1; }));
    hyprland.unfreeze();
    hyprland.isFrozen = true;
    ASSERT_TRUE(runUntil([&] { return hyprland.requests.size() == 2; }));
    focus.stop();
    hyprland.unfreeze();
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.size() == 2; }, Milliseconds(200)));
    EXPECT_EQ(hyprland.focused, "");
}

} // namespace
} // namespace sablequill
