// SPDX-License-Identifier: MIT
#include "HyprlandShield.h"

#include "BusConnection.h"
#include "HyprlandStub.h"

#include <QCoreApplication>
#include <QWidget>
#include <QWindow>

#include <filesystem>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr Milliseconds moment{150};
const QByteArray first = "0x5a1";
const QByteArray second = "0x5b2";
const QByteArray strange = "0x5c3";

class HyprlandShieldTest : public testing::Test {
protected:
    static constexpr HyprlandShield::Times patient{
        .patience = Milliseconds(8000), .retry = Milliseconds(5), .check = Milliseconds(0)};
    static constexpr HyprlandShield::Times impatient{
        .patience = Milliseconds(40), .retry = Milliseconds(5), .check = Milliseconds(0)};
    static constexpr HyprlandShield::Times checking{
        .patience = Milliseconds(8000), .retry = Milliseconds(5), .check = Milliseconds(8000)};

    HyprlandShieldTest() { hyprland.windows = {{strange, ownPid() + 1}}; }

    static qint64 ownPid() { return QCoreApplication::applicationPid(); }

    /// From now on the compositor has a window of ours at that address.
    void list(const QByteArray& address) { hyprland.windows.push_back({address, ownPid()}); }

    /// A window of ours that the compositor has as well.
    void show(QWindow& window, const QByteArray& address)
    {
        window.show();
        list(address);
    }

    /// Shows the panel and turns Mirk mode on.
    bool hidesPanel(HyprlandShield& shield)
    {
        show(panel, first);
        shield.setWanted(true);
        return becomes(shield, MirkEffect::blackBox);
    }

    static bool becomes(const HyprlandShield& shield, MirkEffect effect)
    {
        return runUntil([&] { return shield.effect.get() == effect; });
    }

    /// Whether the window may be shown before long.
    static bool isReleased(const HyprlandShield& shield, WId window)
    {
        return runUntil([&] { return !shield.mustWait(window); });
    }

    /// Whether the list of windows, which lacks one, is asked for again and again.
    bool asksAgain()
    {
        return runUntil([&] { return hyprland.requests.count("j/clients") >= 3; });
    }

    bool becomesHidden(const QSet<QByteArray>& windows)
    {
        return runUntil([&] { return hyprland.hidden == windows; });
    }

    PrivateHome home;
    const QString path = QString::fromStdString((home.runtimeFolder() / "h.sock").string());
    HyprlandStub hyprland{path};
    QWindow panel;
    QWindow popover;
};

class HyprlandFormTest : public HyprlandShieldTest, public testing::WithParamInterface<int> { };

TEST_P(HyprlandFormTest, setWanted_onAndOff_onlyOurWindowsAreHidden)
{
    hyprland.form = GetParam();
    HyprlandShield shield(path, patient);
    show(panel, first);
    show(popover, second);
    shield.setWanted(true);
    EXPECT_TRUE(becomes(shield, MirkEffect::blackBox));
    EXPECT_EQ(hyprland.hidden, QSet({first, second}));
    shield.setWanted(false);
    EXPECT_TRUE(becomesHidden({}));
}

TEST_P(HyprlandFormTest, setWanted_noListOfWindows_theOneOfThePidIsHidden)
{
    hyprland.form = GetParam();
    hyprland.listsWindows = false;
    HyprlandShield shield(path, patient);
    EXPECT_TRUE(hidesPanel(shield));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
    shield.setWanted(false);
    EXPECT_TRUE(becomesHidden({}));
}

INSTANTIATE_TEST_SUITE_P(Each, HyprlandFormTest, testing::Values(0, 1, 2));

TEST_F(HyprlandShieldTest, setWanted_formOnceFound_isTheOnlyOneUsed)
{
    hyprland.form = 2;
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    hyprland.requests.clear();
    shield.setWanted(false);
    ASSERT_TRUE(becomesHidden({}));
    EXPECT_EQ(hyprland.requests,
        QByteArrayList({"j/clients", "setprop address:" + first + " noscreenshare 0"}));
}

TEST_F(HyprlandShieldTest, setWanted_sameAgain_asksNothing)
{
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    hyprland.requests.clear();
    EXPECT_TRUE(runWhile(
        [&] {
            shield.setWanted(true);
            return hyprland.requests.empty();
        },
        moment));
}

TEST_F(HyprlandShieldTest, setWanted_noWindowOnScreen_asksNothing)
{
    HyprlandShield shield(path, patient);
    shield.setWanted(true);
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.empty(); }, moment));
    EXPECT_EQ(shield.effect.get(), MirkEffect::unknown);
}

TEST_F(HyprlandShieldTest, windowShown_mirkModeOn_waitsUntilItIsHidden)
{
    HyprlandShield shield(path, patient);
    shield.setWanted(true);
    panel.create();
    EXPECT_TRUE(shield.mustWait(panel.winId()));
    show(panel, first);
    EXPECT_TRUE(isReleased(shield, panel.winId()));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
    EXPECT_EQ(shield.effect.get(), MirkEffect::blackBox);
}

TEST_F(HyprlandShieldTest, widgetShown_mirkModeOn_isHiddenLikeAnyWindow)
{
    HyprlandShield shield(path, patient);
    shield.setWanted(true);
    QWidget widget;
    widget.show();
    EXPECT_TRUE(shield.mustWait(widget.effectiveWinId()));
    list(first);
    EXPECT_TRUE(isReleased(shield, widget.effectiveWinId()));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
}

TEST_F(HyprlandShieldTest, windowShown_compositorHasItLater_waitsForThat)
{
    HyprlandShield shield(path, patient);
    shield.setWanted(true);
    panel.show();
    ASSERT_TRUE(asksAgain());
    EXPECT_TRUE(shield.mustWait(panel.winId()));
    list(first);
    EXPECT_TRUE(isReleased(shield, panel.winId()));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
}

TEST_F(HyprlandShieldTest, windowShown_secondOne_firstDoesNotWaitAgain)
{
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    show(popover, second);
    EXPECT_FALSE(shield.mustWait(panel.winId()));
    EXPECT_TRUE(shield.mustWait(popover.winId()));
    EXPECT_TRUE(isReleased(shield, popover.winId()));
    EXPECT_EQ(hyprland.hidden, QSet({first, second}));
}

TEST_F(HyprlandShieldTest, windowShown_againAfterHiding_doesNotWaitAndIsHiddenAnew)
{
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    panel.hide();
    hyprland.hidden.clear();
    panel.show();
    EXPECT_FALSE(shield.mustWait(panel.winId()));
    EXPECT_TRUE(becomesHidden({first}));
}

TEST_F(HyprlandShieldTest, windowShown_anotherOneIsStillListed_isNotTakenForIt)
{
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    panel.destroy();
    popover.show();
    hyprland.requests.clear();
    ASSERT_TRUE(asksAgain());
    EXPECT_TRUE(shield.mustWait(popover.winId()));
    list(second);
    EXPECT_TRUE(isReleased(shield, popover.winId()));
    EXPECT_EQ(hyprland.hidden, QSet({first, second}));
}

TEST_F(HyprlandShieldTest, setWanted_allSeemsHidden_windowThatComesLaterIsHiddenToo)
{
    HyprlandShield shield(path, checking);
    ASSERT_TRUE(hidesPanel(shield));
    list(second);
    EXPECT_TRUE(becomesHidden({first, second}));
    EXPECT_EQ(shield.effect.get(), MirkEffect::blackBox);
}

TEST_F(HyprlandShieldTest, setWanted_listedWindowGoes_othersAreHidden)
{
    HyprlandShield shield(path, patient);
    list(second);
    hyprland.going = second;
    EXPECT_TRUE(hidesPanel(shield));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
}

TEST_F(HyprlandShieldTest, setWanted_listedWindowIsClosing_othersAreHidden)
{
    HyprlandShield shield(path, patient);
    list(second);
    hyprland.closing = {second};
    EXPECT_TRUE(hidesPanel(shield));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
}

TEST_F(HyprlandShieldTest, windowShown_onlyAClosingWindowIsListed_isNotTakenForARefusal)
{
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    panel.destroy();
    hyprland.closing = {first};
    popover.show();
    hyprland.requests.clear();
    ASSERT_TRUE(asksAgain());
    EXPECT_TRUE(shield.mustWait(popover.winId()));
    list(second);
    EXPECT_TRUE(isReleased(shield, popover.winId()));
    EXPECT_TRUE(hyprland.hidden.contains(second));
    EXPECT_EQ(shield.effect.get(), MirkEffect::blackBox);
}

TEST_F(HyprlandShieldTest, setWanted_onlyListedWindowGoes_isNotTakenForARefusal)
{
    HyprlandShield shield(path, patient);
    list(second);
    hyprland.going = second;
    panel.show();
    shield.setWanted(true);
    ASSERT_TRUE(asksAgain());
    EXPECT_TRUE(shield.mustWait(panel.winId()));
    list(first);
    EXPECT_TRUE(becomes(shield, MirkEffect::blackBox));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
}

TEST_F(HyprlandShieldTest, windowShown_turnedOffWhileItWasAway_isShownToCapturesAgain)
{
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    panel.hide();
    shield.setWanted(false);
    EXPECT_TRUE(runWhile([&] { return hyprland.hidden.contains(first); }, moment));
    panel.show();
    EXPECT_FALSE(shield.mustWait(panel.winId()));
    EXPECT_TRUE(becomesHidden({}));
}

TEST_F(HyprlandShieldTest, windowShown_numberOfOneThatEnded_isHiddenToo)
{
    HyprlandShield shield(path, patient);
    ASSERT_TRUE(hidesPanel(shield));
    const WId number = panel.winId();
    panel.destroy();
    EXPECT_TRUE(shield.mustWait(number));
}

TEST_F(HyprlandShieldTest, setWanted_manyTurnsAtOnce_lastOneHolds)
{
    HyprlandShield shield(path, patient);
    show(panel, first);
    for (int turn = 0; turn < 5; ++turn) {
        shield.setWanted(true);
        runWhile([] { return true; }, Milliseconds(turn));
        shield.setWanted(false);
        runWhile([] { return true; }, Milliseconds(turn));
    }
    shield.setWanted(true);
    EXPECT_TRUE(becomesHidden({first}));
    EXPECT_TRUE(isReleased(shield, panel.winId()));
    shield.setWanted(false);
    EXPECT_TRUE(becomesHidden({}));
}

TEST_F(HyprlandShieldTest, setWanted_noFormIsUnderstood_saysSoAndAsksNoMore)
{
    hyprland.form = -1;
    HyprlandShield shield(path, patient);
    show(panel, first);
    shield.setWanted(true);
    EXPECT_TRUE(becomes(shield, MirkEffect::none));
    EXPECT_FALSE(shield.mustWait(panel.winId()));
    EXPECT_EQ(hyprland.requests.size(), 5) << "the list, each form once, and the list";
    show(popover, second);
    EXPECT_FALSE(shield.mustWait(popover.winId()));
    EXPECT_TRUE(runWhile([&] { return hyprland.requests.size() == 5; }, moment));
}

TEST_F(HyprlandShieldTest, setWanted_readBackIsFalse_saysThatNothingIsHidden)
{
    hyprland.obeys = false;
    HyprlandShield shield(path, patient);
    show(panel, first);
    shield.setWanted(true);
    EXPECT_TRUE(becomes(shield, MirkEffect::none));
    EXPECT_FALSE(shield.mustWait(panel.winId()));
}

struct Failing {
    const char* name;
    std::optional<QByteArray> instead;
};

class HyprlandFailureTest : public HyprlandShieldTest,
                            public testing::WithParamInterface<Failing> { };

TEST_P(HyprlandFailureTest, setWanted_always_windowIsNotHeldBackAndTheTruthIsTold)
{
    hyprland.instead = GetParam().instead;
    HyprlandShield shield(path, impatient);
    show(panel, first);
    shield.setWanted(true);
    EXPECT_TRUE(isReleased(shield, panel.winId()));
    EXPECT_EQ(shield.effect.get(), MirkEffect::none);
    // It is not given up either.
    hyprland.instead.reset();
    EXPECT_TRUE(becomesHidden({first}));
    EXPECT_TRUE(becomes(shield, MirkEffect::blackBox));
}

INSTANTIATE_TEST_SUITE_P(Each, HyprlandFailureTest,
    testing::Values(Failing{"noAnswer", QByteArray()}, Failing{"garbage", "\x01\xff{[\"address\":"},
        Failing{"otherJson", R"([1, {"pid": "x"}, {"address": 7}])"}),
    [](const auto& info) { return info.param.name; });

TEST_F(HyprlandShieldTest, windowShown_compositorAnswersLongAfterAnyPatience_waitsForThat)
{
    hyprland.isFrozen = true;
    HyprlandShield shield(path, impatient);
    shield.setWanted(true);
    show(panel, first);
    ASSERT_TRUE(runUntil([&] { return !hyprland.requests.empty(); }));
    EXPECT_TRUE(
        runWhile([&] { return shield.mustWait(panel.winId()); }, impatient.patience + moment));
    EXPECT_EQ(shield.effect.get(), MirkEffect::unknown);
    hyprland.unfreeze();
    EXPECT_TRUE(isReleased(shield, panel.winId()));
    EXPECT_EQ(hyprland.hidden, QSet({first}));
    EXPECT_EQ(shield.effect.get(), MirkEffect::blackBox);
}

TEST_F(HyprlandShieldTest, setWanted_offWhileTheCompositorIsFrozen_windowIsReleasedAtOnce)
{
    hyprland.isFrozen = true;
    HyprlandShield shield(path, patient);
    shield.setWanted(true);
    show(panel, first);
    ASSERT_TRUE(runUntil([&] { return !hyprland.requests.empty(); }));
    int announced = 0;
    QObject::connect(&shield, &CaptureShield::waitingChanged, &shield, [&] { ++announced; });
    shield.setWanted(false);
    EXPECT_FALSE(shield.mustWait(panel.winId()));
    EXPECT_GE(announced, 1);
    hyprland.unfreeze();
    EXPECT_TRUE(becomesHidden({}));
}

TEST_F(HyprlandShieldTest, windowShown_addressOfOneThatEnded_doesNotWaitInVain)
{
    HyprlandShield shield(path, patient);
    show(panel, first);
    show(popover, second);
    shield.setWanted(true);
    ASSERT_TRUE(becomes(shield, MirkEffect::blackBox));
    hyprland.requests.clear();
    hyprland.windows.pop_back();
    hyprland.hidden.remove(second);
    popover.destroy();
    ASSERT_TRUE(runUntil([&] { return hyprland.requests.contains("j/clients"); }));
    QWindow menu;
    show(menu, second);
    EXPECT_TRUE(isReleased(shield, menu.winId()));
    EXPECT_EQ(hyprland.hidden, QSet({first, second}));
}

TEST_F(HyprlandShieldTest, windowShown_oneThatCameAndWentIsListed_isNotTakenForIt)
{
    HyprlandShield shield(path, patient);
    shield.setWanted(true);
    show(popover, second);
    popover.destroy();
    panel.show();
    ASSERT_TRUE(asksAgain());
    EXPECT_TRUE(shield.mustWait(panel.winId()));
    list(first);
    EXPECT_TRUE(isReleased(shield, panel.winId()));
    EXPECT_EQ(hyprland.hidden, QSet({first, second}));
}

TEST_F(HyprlandShieldTest, setWanted_socketVanished_windowIsNotHeldBack)
{
    std::filesystem::remove(path.toStdString());
    HyprlandShield shield(path, impatient);
    show(panel, first);
    shield.setWanted(true);
    EXPECT_TRUE(isReleased(shield, panel.winId()));
    EXPECT_EQ(shield.effect.get(), MirkEffect::none);
}

TEST_F(HyprlandShieldTest, setWanted_listWithAnAddressThatIsNone_isNotSentBack)
{
    HyprlandShield shield(path, impatient);
    show(panel, "0x1\", window = \"0x2");
    shield.setWanted(true);
    ASSERT_TRUE(runUntil([&] { return hyprland.requests.size() >= 2; }));
    for (const QByteArray& request : hyprland.requests)
        EXPECT_FALSE(request.contains("0x2")) << request.toStdString();
}

} // namespace
} // namespace sablequill
