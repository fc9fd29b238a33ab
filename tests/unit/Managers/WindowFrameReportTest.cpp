// SPDX-License-Identifier: MIT
#include "WindowManagerFixture.h"

namespace sablequill {
namespace {

/// Hearing of moves and resizes.
using WindowFrameReportTest = WindowManagerFixture;

TEST_F(WindowFrameReportTest, windowDidMove_eachStep_oneReportAtOnce)
{
    createPanel();

    panel().move(600, 300);
    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([600 300 420 280])"});
    panel().move(601, 301.5);
    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([601 301.5 420 280])"});
    panel().move(601, 301.5);
    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([601 301.5 420 280])"});
}

TEST_F(WindowFrameReportTest, windowDidResize_mirkModeOn_excludesThenReportsAtEveryStep)
{
    createPanel();

    panel().resize(500, 290);
    panel().resize(510, 300);

    EXPECT_EQ(journal.take(),
        excluded + Lines{"onFrameChanged([510 310 500 290])"} + excluded
            + Lines{"onFrameChanged([510 310 510 300])"});
}

TEST_F(WindowFrameReportTest, windowDidResize_mirkModeOff_onlyReports)
{
    apply(withoutMirkMode());
    createPanel();

    panel().resize(500, 290);

    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([510 310 500 290])"});
}

TEST_F(WindowFrameReportTest, endOfLiveResize_mirkModeOn_reportsThenExcludes)
{
    createPanel();

    panel().endLiveResize();

    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([510 310 420 280])"} + excluded);
}

TEST_F(WindowFrameReportTest, endOfLiveResize_mirkModeOff_onlyReports)
{
    createPanel();
    apply(withoutMirkMode());

    panel().endLiveResize();

    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([510 310 420 280])"});
}

TEST_F(WindowFrameReportTest, notification_objectIsNoPanel_isIgnored)
{
    createPanel();

    manager->windowDidMove(nullptr);
    manager->windowDidResize(nullptr);
    panel().notifyDidEndLiveResize(nullptr);

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(WindowFrameReportTest, notification_otherWindow_itsFrameIsReported)
{
    createPanel();
    FakePanel other(journal, clock, {.contentRect = {1, 2, 3, 4}});

    manager->windowDidMove(&other);

    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([1 2 3 4])"});
}

TEST_F(WindowFrameReportTest, persistFrame_noCallback_doesNothing)
{
    createPanel();
    manager->onFrameChanged = nullptr;

    manager->persistFrame(panel());
    panel().resize(500, 290);

    EXPECT_EQ(journal.take(), excluded);
}

TEST_F(WindowFrameReportTest, observeResize_managerGone_observerDoesNothing)
{
    OverlayPanel other(panels, {1, 2, 3, 4}, 0, BackingStore::buffered, false);
    manager->observeResize(other);
    panel().endLiveResize();
    EXPECT_FALSE(journal.take().empty());

    manager.reset();
    panel().endLiveResize();

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(WindowFrameReportTest, observeResize_otherPanel_earlierObserverIsReleased)
{
    createPanel();
    FakePanel& first = panel();
    OverlayPanel other(panels, {1, 2, 3, 4}, 0, BackingStore::buffered, false);

    manager->observeResize(other);
    journal.take();
    first.endLiveResize();
    EXPECT_EQ(journal.take(), Lines{});
    panel().endLiveResize();
    EXPECT_EQ(journal.take(), Lines{"onFrameChanged([1 2 3 4])"} + excluded);
}

TEST_F(WindowFrameReportTest, destroy_withPanel_delegateIsWithdrawnFirst)
{
    createPanel();
    manager->hideOverlay();
    journal.take();

    manager.reset();
    clock.advance(1);

    EXPECT_EQ(journal.take(), Lines{"panel.setDelegate(none)"});
}

} // namespace
} // namespace sablequill
