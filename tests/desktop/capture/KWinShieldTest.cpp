// SPDX-License-Identifier: MIT
#include "KWinShield.h"

#include "KWinStub.h"
#include "ScopedVariable.h"

#include <QCoreApplication>
#include <QFile>

#include <filesystem>

#include <gtest/gtest.h>

namespace sablequill {
using namespace Qt::StringLiterals;

namespace {

constexpr Milliseconds moment{150};
constexpr int stranger = 1;

class KWinShieldTest : public testing::Test {
protected:
    KWinShieldTest()
    {
        QObject::connect(&shield, &CaptureShield::waitingChanged, &shield,
            [this] { waited.push_back(shield.mustWait(0)); });
    }

    static int ownPid() { return static_cast<int>(QCoreApplication::applicationPid()); }

    static KWinShield::Times quick()
    {
        return {.patience = Milliseconds(8000),
            .confirmation = Milliseconds(400),
            .retry = Milliseconds(20)};
    }

    bool becomes(MirkEffect effect)
    {
        return runUntil([&] { return shield.effect.get() == effect; });
    }

    static bool becomesHidden(const StubWindow& window, bool isHidden = true)
    {
        return runUntil([&] { return window.isHidden() == isHidden; });
    }

    /// A KWin with a window of ours and one of somebody else's.
    std::unique_ptr<KWinStub> startKWin(bool canHide = true)
    {
        auto started = std::make_unique<KWinStub>(address, canHide);
        started->addWindow(stranger);
        started->addWindow(ownPid());
        return started;
    }

    std::size_t scriptFiles() const
    {
        std::error_code error;
        const auto folder = home.runtimeFolder() / "sablequill";
        const std::filesystem::directory_iterator files(folder, error);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    PrivateHome home;
    ScopedVariable runtime{"XDG_RUNTIME_DIR", home.runtimeFolder()};
    SessionBus daemon{home, home.environment()};
    const std::string address = SessionBus::addressIn(home);
    BusConnection program{address};
    KWinShield shield{program.get(), quick()};
    std::vector<bool> waited;
};

TEST_F(KWinShieldTest, start_noKWin_saysThatNothingIsHidden)
{
    EXPECT_EQ(shield.effect.get(), MirkEffect::unknown);
    EXPECT_TRUE(becomes(MirkEffect::none));
}

TEST_F(KWinShieldTest, setWanted_windowsThere_onlyOursAreHidden)
{
    const auto kwin = startKWin();
    shield.setWanted(true);
    EXPECT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_FALSE(kwin->windows()[0]->isHidden());
    EXPECT_TRUE(kwin->windows()[1]->isHidden());
}

TEST_F(KWinShieldTest, setWanted_windowsComeLater_areHiddenAsTheyAppear)
{
    const auto kwin = startKWin();
    shield.setWanted(true);
    ASSERT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_TRUE(kwin->addWindow(ownPid()).isHidden());
    EXPECT_FALSE(kwin->addWindow(stranger).isHidden());
    EXPECT_TRUE(kwin->addWindow(ownPid()).isHidden());
}

TEST_F(KWinShieldTest, setWanted_noWindowInTheSession_firstOneTells)
{
    KWinStub kwin(address);
    shield.setWanted(true);
    ASSERT_TRUE(runUntil([&] { return !kwin.loadedScripts().empty() && !shield.mustWait(0); }));
    EXPECT_EQ(shield.effect.get(), MirkEffect::unknown);
    EXPECT_TRUE(kwin.addWindow(ownPid()).isHidden());
    EXPECT_TRUE(becomes(MirkEffect::hidden));
}

TEST_F(KWinShieldTest, setWanted_off_windowsAreShownAndNoScriptStays)
{
    const auto kwin = startKWin();
    shield.setWanted(true);
    ASSERT_TRUE(becomesHidden(*kwin->windows()[1]));
    shield.setWanted(false);
    EXPECT_TRUE(becomesHidden(*kwin->windows()[1], false));
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts().empty(); }));
    EXPECT_FALSE(kwin->addWindow(ownPid()).isHidden());
    EXPECT_TRUE(becomes(MirkEffect::hidden)) << "that is what it would do";
}

TEST_F(KWinShieldTest, setWanted_offFromTheStart_learnsWhatKWinCanDo)
{
    const auto kwin = startKWin();
    shield.setWanted(false);
    EXPECT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_FALSE(kwin->windows()[1]->isHidden());
    EXPECT_FALSE(shield.mustWait(0));
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts().empty(); }));
}

TEST_F(KWinShieldTest, setWanted_manyTurnsAtOnce_lastOneHolds)
{
    const auto kwin = startKWin();
    for (int turn = 0; turn < 5; ++turn) {
        shield.setWanted(true);
        shield.setWanted(false);
        runWhile([] { return true; }, Milliseconds(turn * 3));
    }
    shield.setWanted(true);
    EXPECT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_TRUE(runUntil(
        [&] { return kwin->loadedScripts().size() == 1 && kwin->windows()[1]->isHidden(); }));
    shield.setWanted(false);
    EXPECT_TRUE(becomesHidden(*kwin->windows()[1], false));
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts().empty(); }));
}

TEST_F(KWinShieldTest, setWanted_sameAgain_sendsNothing)
{
    const auto kwin = startKWin();
    for (const bool isWanted : {true, false}) {
        shield.setWanted(isWanted);
        ASSERT_TRUE(runUntil([&] {
            return kwin->loadedScripts().size() == isWanted
                && kwin->windows()[1]->isHidden() == isWanted;
        }));
        kwin->calls.clear();
        EXPECT_TRUE(runWhile(
            [&] {
                shield.setWanted(isWanted);
                return kwin->calls.empty();
            },
            moment))
            << kwin->calls.join(u' ').toStdString();
    }
}

TEST_F(KWinShieldTest, mustWait_whileItBegins_untilTheWindowsAreHidden)
{
    const auto kwin = startKWin();
    EXPECT_FALSE(shield.mustWait(0));
    shield.setWanted(true);
    EXPECT_TRUE(shield.mustWait(0));
    ASSERT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_FALSE(shield.mustWait(0));
    EXPECT_FALSE(waited.back());
}

TEST_F(KWinShieldTest, mustWait_noKWin_onlySoLong)
{
    KWinShield impatient(program.get(), {.patience = Milliseconds(30)});
    impatient.setWanted(true);
    EXPECT_TRUE(impatient.mustWait(0));
    EXPECT_TRUE(runUntil([&] { return !impatient.mustWait(0); }));
    EXPECT_EQ(impatient.effect.get(), MirkEffect::none);
}

TEST_F(KWinShieldTest, mustWait_kwinAnswersLongAfterAnyPatience_waitsForThat)
{
    const auto kwin = startKWin();
    kwin->isFrozen = true;
    KWinShield impatient(
        program.get(), {.patience = Milliseconds(30), .confirmation = Milliseconds(30)});
    impatient.setWanted(true);
    ASSERT_TRUE(runUntil([&] { return kwin->calls.contains(u"loadScript"_s); }));
    EXPECT_TRUE(runWhile([&] { return impatient.mustWait(0); }, moment));
    kwin->unfreeze();
    EXPECT_TRUE(runUntil([&] { return !impatient.mustWait(0); }));
    EXPECT_EQ(impatient.effect.get(), MirkEffect::hidden);
    EXPECT_TRUE(kwin->windows()[1]->isHidden());
}

TEST_F(KWinShieldTest, mustWait_noScriptEverReports_untilAllAttemptsFailed)
{
    const auto kwin = startKWin();
    kwin->manner = KWinStub::Manner::runsNothing;
    KWinShield impatient(program.get(), {.confirmation = Milliseconds(20)});
    impatient.setWanted(true);
    EXPECT_TRUE(runUntil([&] { return !impatient.mustWait(0); }));
    EXPECT_EQ(impatient.effect.get(), MirkEffect::none);
    EXPECT_GE(kwin->calls.count(u"loadScript"_s), 4);
}

TEST_F(KWinShieldTest, setWanted_kwinHasNoSuchProperty_saysSoOnceAndLeaves)
{
    const auto kwin = startKWin(false);
    shield.setWanted(true);
    EXPECT_TRUE(runUntil([&] { return kwin->calls.contains(u"unloadScript"_s); }));
    EXPECT_TRUE(runUntil([&] { return !shield.mustWait(0); }));
    EXPECT_EQ(shield.effect.get(), MirkEffect::none);
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts().empty(); }));
    kwin->calls.clear();
    shield.setWanted(false);
    shield.setWanted(true);
    EXPECT_TRUE(runWhile([&] { return kwin->calls.empty(); }, moment));
}

TEST_F(KWinShieldTest, setWanted_kwinRefuses_triesAgainLater)
{
    const auto kwin = startKWin();
    kwin->manner = KWinStub::Manner::refuses;
    shield.setWanted(true);
    ASSERT_TRUE(runUntil([&] { return kwin->calls.count(u"loadScript"_s) >= 2; }));
    EXPECT_EQ(shield.effect.get(), MirkEffect::none);
    EXPECT_FALSE(shield.mustWait(0));
    kwin->manner = KWinStub::Manner::normal;
    EXPECT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_TRUE(kwin->windows()[1]->isHidden());
}

TEST_F(KWinShieldTest, setWanted_kwinRefusesForGood_isLeftAlone)
{
    const auto kwin = startKWin();
    kwin->manner = KWinStub::Manner::refuses;
    shield.setWanted(true);
    ASSERT_TRUE(runUntil([&] { return kwin->calls.count(u"loadScript"_s) == 6; }));
    EXPECT_TRUE(runWhile(
        [&] { return kwin->calls.count(u"loadScript"_s) == 6; }, quick().retry * (1 << 6)));
}

TEST_F(KWinShieldTest, setWanted_numberBelongsToAnother_triesTheNextOne)
{
    const auto kwin = startKWin();
    for (const auto& name : {u"a"_s, u"b"_s, u"c"_s})
        kwin->loadForeignScript(name);
    // Two are left, and the path of number 2 is the second one's.
    kwin->unloadScript(u"a"_s);
    shield.setWanted(true);
    EXPECT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_TRUE(kwin->windows()[1]->isHidden());
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts().size() == 3; }))
        << "of the attempts only the last stays";
    shield.setWanted(false);
    EXPECT_TRUE(becomesHidden(*kwin->windows()[1], false));
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts() == QStringList({u"b"_s, u"c"_s}); }));
}

TEST_F(KWinShieldTest, kwin_comesLate_isUsed)
{
    shield.setWanted(true);
    ASSERT_TRUE(becomes(MirkEffect::none));
    const auto kwin = startKWin();
    EXPECT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_TRUE(kwin->windows()[1]->isHidden());
}

TEST_F(KWinShieldTest, kwin_restarts_windowsAreHiddenAgain)
{
    shield.setWanted(true);
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(becomes(MirkEffect::none));
        const auto kwin = startKWin();
        EXPECT_TRUE(becomes(MirkEffect::hidden));
        EXPECT_TRUE(kwin->windows()[1]->isHidden());
    }
}

TEST_F(KWinShieldTest, kwin_restartsInAnOlderVersion_saysThatNothingIsHidden)
{
    shield.setWanted(true);
    ASSERT_TRUE(becomes(MirkEffect::none));
    {
        const auto kwin = startKWin();
        ASSERT_TRUE(becomes(MirkEffect::hidden));
    }
    const auto older = startKWin(false);
    EXPECT_TRUE(becomes(MirkEffect::none));
    EXPECT_TRUE(runUntil([&] { return older->calls.contains(u"loadScript"_s); }));
}

TEST_F(KWinShieldTest, scriptFile_whileItLoads_isPrivateAndThenGone)
{
    const auto kwin = startKWin();
    kwin->manner = KWinStub::Manner::keepsSilent;
    shield.setWanted(true);
    ASSERT_TRUE(runUntil([&] { return scriptFiles() == 1; }));
    const auto folder = home.runtimeFolder() / "sablequill";
    const auto file = std::filesystem::directory_iterator(folder)->path();
    EXPECT_EQ(std::filesystem::status(file).permissions(),
        std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    EXPECT_EQ(std::filesystem::status(folder).permissions(), std::filesystem::perms::owner_all);
    kwin->manner = KWinStub::Manner::normal;
    shield.setWanted(false);
    shield.setWanted(true);
    ASSERT_TRUE(becomes(MirkEffect::hidden));
    EXPECT_EQ(scriptFiles(), 0U);
}

TEST_F(KWinShieldTest, report_fromAnotherScript_meansNothing)
{
    const auto kwin = startKWin();
    kwin->manner = KWinStub::Manner::keepsSilent;
    KWinJob job(program.get(), KWinJob::Task::hide, Milliseconds(8000));
    int results = 0;
    QObject::connect(&job, &KWinJob::finished, &job, [&] { ++results; });
    job.start();
    job.Report(u"another"_s, u"hidden"_s);
    EXPECT_EQ(results, 0);
}

TEST_F(KWinShieldTest, shield_ends_takesItsScriptAway)
{
    const auto kwin = startKWin();
    {
        KWinShield other(program.get(), quick());
        other.setWanted(true);
        ASSERT_TRUE(runUntil([&] { return other.effect.get() == MirkEffect::hidden; }));
        EXPECT_EQ(kwin->loadedScripts().size(), 1);
    }
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts().empty(); }));
}

TEST_F(KWinShieldTest, program_isKilled_scriptTakesItselfAway)
{
    const auto kwin = startKWin();
    auto environment = home.environment();
    environment["DBUS_SESSION_BUS_ADDRESS"] = address;
    ChildProcess other({{SHIELD_PROGRAM}, environment, home.path() / "program.log"});
    StubWindow& window = kwin->addWindow(other.pid());
    ASSERT_TRUE(becomesHidden(window)) << other.output();
    ASSERT_EQ(kwin->loadedScripts().size(), 1);
    other.sendSignal(SIGKILL);
    EXPECT_TRUE(runUntil([&] { return kwin->loadedScripts().empty(); }));
}

} // namespace
} // namespace sablequill
