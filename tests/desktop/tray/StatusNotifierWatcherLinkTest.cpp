// SPDX-License-Identifier: MIT
#include "StatusNotifierWatcherLink.h"
#include "BusTest.h"
#include "SilentWatcher.h"

namespace sablequill {
namespace {

using Host = StatusNotifierWatcherLink::Host;
constexpr Milliseconds moment{150};

class StatusNotifierWatcherLinkTest : public BusTest {
protected:
    StatusNotifierWatcherLinkTest()
    {
        QObject::connect(&link, &StatusNotifierWatcherLink::hostChanged, &link,
            [this] { changes.push_back(link.host()); });
    }

    bool becomes(Host host)
    {
        return runUntil([&] { return link.host() == host; });
    }

    StatusNotifierHost::Item ownItem() const { return {program.get().baseService(), itemPath}; }

    const QString itemPath = QStringLiteral("/Item");
    StatusNotifierWatcherLink link{program.get(), itemPath};
    std::vector<Host> changes;
};

TEST_F(StatusNotifierWatcherLinkTest, start_watcherWithHost_registersOnce)
{
    const StatusNotifierHost host(address);
    EXPECT_EQ(link.host(), Host::unknown);
    link.start();
    EXPECT_TRUE(becomes(Host::present));
    EXPECT_EQ(host.items(), std::vector{ownItem()});
    EXPECT_EQ(changes, std::vector{Host::present});
}

TEST_F(StatusNotifierWatcherLinkTest, start_noWatcher_hostIsAbsent)
{
    link.start();
    EXPECT_TRUE(becomes(Host::absent));
    EXPECT_EQ(changes, std::vector{Host::absent});
}

TEST_F(StatusNotifierWatcherLinkTest, start_watcherComesLater_registersThen)
{
    link.start();
    ASSERT_TRUE(becomes(Host::absent));
    const StatusNotifierHost host(address);
    EXPECT_TRUE(becomes(Host::present));
    EXPECT_EQ(host.items(), std::vector{ownItem()});
}

TEST_F(StatusNotifierWatcherLinkTest, start_watcherRestarts_registersAgainEachTime)
{
    link.start();
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(becomes(Host::absent));
        const StatusNotifierHost host(address);
        ASSERT_TRUE(becomes(Host::present));
        EXPECT_EQ(host.items(), std::vector{ownItem()});
    }
}

TEST_F(StatusNotifierWatcherLinkTest, start_watcherReplacedByAnother_registersWithTheNewOne)
{
    const StatusNotifierHost first(address);
    link.start();
    ASSERT_TRUE(becomes(Host::present));
    const StatusNotifierHost second(address);
    EXPECT_TRUE(runUntil([&] { return !second.items().empty(); }));
    EXPECT_EQ(second.items(), std::vector{ownItem()});
    EXPECT_EQ(first.items().size(), 1U);
    EXPECT_EQ(changes, std::vector{Host::present});
}

TEST_F(StatusNotifierWatcherLinkTest, start_watcherWithoutHost_registersAndHostIsAbsent)
{
    const StatusNotifierHost watcher(address, false);
    link.start();
    EXPECT_TRUE(becomes(Host::absent));
    EXPECT_EQ(watcher.items(), std::vector{ownItem()});
}

TEST_F(StatusNotifierWatcherLinkTest, start_hostComesAndGoesUnderTheWatcher_isFollowed)
{
    StatusNotifierHost watcher(address, false);
    link.start();
    ASSERT_TRUE(becomes(Host::absent));
    watcher.setHasHost(true);
    EXPECT_TRUE(becomes(Host::present));
    watcher.setHasHost(false);
    EXPECT_TRUE(becomes(Host::absent));
    EXPECT_EQ(watcher.items().size(), 1U) << "the watcher knows the item already";
}

TEST_F(StatusNotifierWatcherLinkTest, start_watcherNeverAnswers_hostStaysUnknown)
{
    SilentWatcher watcher(address);
    link.start();
    ASSERT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
    EXPECT_TRUE(runWhile([&] { return link.host() == Host::unknown; }, moment));
}

TEST_F(StatusNotifierWatcherLinkTest, start_watcherKnowsNoSuchProperty_hostIsAbsent)
{
    SilentWatcher watcher(address);
    link.start();
    ASSERT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
    watcher.refuse();
    EXPECT_TRUE(becomes(Host::absent));
}

TEST_F(StatusNotifierWatcherLinkTest, start_callWithoutAnswerInTime_hostStaysUnknown)
{
    SilentWatcher watcher(address);
    link.start();
    ASSERT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
    watcher.giveUp();
    EXPECT_TRUE(runWhile([&] { return link.host() == Host::unknown; }, moment));
}

TEST_F(StatusNotifierWatcherLinkTest, start_answerAfterTheWatcherWent_isOutOfDate)
{
    SilentWatcher watcher(address);
    link.start();
    ASSERT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
    watcher.leave();
    ASSERT_TRUE(becomes(Host::absent));
    watcher.answer(true);
    EXPECT_TRUE(runWhile([&] { return link.host() == Host::absent; }, moment));
}

TEST_F(StatusNotifierWatcherLinkTest, start_busEndsBeforeTheAnswer_hostIsAbsent)
{
    SilentWatcher watcher(address);
    link.start();
    ASSERT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
    daemon.reset();
    EXPECT_TRUE(becomes(Host::absent));
}

TEST_F(StatusNotifierWatcherLinkTest, start_busEndsUnderAHost_hostIsAbsent)
{
    const StatusNotifierHost host(address);
    link.start();
    ASSERT_TRUE(becomes(Host::present));
    daemon.reset();
    EXPECT_TRUE(becomes(Host::absent));
}

TEST_F(StatusNotifierWatcherLinkTest, destroy_answerStillOut_isHarmless)
{
    SilentWatcher watcher(address);
    {
        StatusNotifierWatcherLink shortLived(program.get(), itemPath);
        shortLived.start();
        ASSERT_TRUE(runUntil([&] { return watcher.hasQuestion(); }));
    }
    watcher.answer(true);
    watcher.leave();
    const StatusNotifierHost host(address);
    link.start();
    EXPECT_TRUE(becomes(Host::present));
}

} // namespace
} // namespace sablequill
