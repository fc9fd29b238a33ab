// SPDX-License-Identifier: MIT
#include "KWinPin.h"

#include "KWinStub.h"
#include "ScopedVariable.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

constexpr int stranger = 1;

class KWinPinTest : public testing::Test {
protected:
    static int ownPid() { return static_cast<int>(QCoreApplication::applicationPid()); }

    static constexpr KWinPin::Times quick{
        .confirmation = Milliseconds(400), .retry = Milliseconds(20)};

    static bool becomesPinned(const StubWindow& window)
    {
        return runUntil([&] { return window.isOnAllDesktops; });
    }

    PrivateHome home;
    ScopedVariable runtime{"XDG_RUNTIME_DIR", home.runtimeFolder()};
    SessionBus daemon{home, home.environment()};
    const std::string address = SessionBus::addressIn(home);
    BusConnection program{address};
};

TEST_F(KWinPinTest, start_windowsThere_onlyOurPanelsArePinned)
{
    KWinStub kwin(address);
    const StubWindow& other = kwin.addWindow(stranger, true);
    const StubWindow& settings = kwin.addWindow(ownPid());
    const StubWindow& panel = kwin.addWindow(ownPid(), true);
    const KWinPin pin(program.get(), quick);
    EXPECT_TRUE(becomesPinned(panel));
    EXPECT_FALSE(other.isOnAllDesktops);
    EXPECT_FALSE(settings.isOnAllDesktops);
    EXPECT_FALSE(panel.isHidden());
}

TEST_F(KWinPinTest, windowAdded_each_panelsArePinnedAsTheyAppear)
{
    KWinStub kwin(address);
    const KWinPin pin(program.get(), quick);
    const StubWindow& first = kwin.addWindow(ownPid(), true);
    ASSERT_TRUE(becomesPinned(first));
    ASSERT_TRUE(runUntil([&] { return kwin.loadedScripts().size() == 1; }));
    EXPECT_TRUE(kwin.addWindow(ownPid(), true).isOnAllDesktops);
    EXPECT_FALSE(kwin.addWindow(stranger, true).isOnAllDesktops);
}

TEST_F(KWinPinTest, ownerChanged_kwinComesLaterAndAgain_panelsArePinned)
{
    const KWinPin pin(program.get(), quick);
    for (int time = 0; time < 2; ++time) {
        KWinStub kwin(address);
        EXPECT_TRUE(becomesPinned(kwin.addWindow(ownPid(), true)));
    }
}

TEST_F(KWinPinTest, start_kwinRefusesAtFirst_isTriedAgain)
{
    KWinStub kwin(address);
    const StubWindow& panel = kwin.addWindow(ownPid(), true);
    kwin.manner = KWinStub::Manner::refuses;
    const KWinPin pin(program.get(), quick);
    const QString load = QStringLiteral("loadScript");
    ASSERT_TRUE(runUntil([&] { return kwin.calls.count(load) >= 2; }));
    kwin.manner = KWinStub::Manner::normal;
    EXPECT_TRUE(becomesPinned(panel));
}

TEST_F(KWinPinTest, end_scriptThere_goesToo)
{
    KWinStub kwin(address);
    const StubWindow& panel = kwin.addWindow(ownPid(), true);
    {
        const KWinPin pin(program.get(), quick);
        ASSERT_TRUE(becomesPinned(panel));
        EXPECT_FALSE(kwin.loadedScripts().empty());
    }
    EXPECT_TRUE(runUntil([&] { return kwin.loadedScripts().empty(); }));
}

} // namespace
} // namespace sablequill
