// SPDX-License-Identifier: MIT
#include "FakePanel.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using Lines = std::vector<std::string>;

class FakePanelTest : public testing::Test {
protected:
    AlphaAnimation fade(double duration, const char* completion = nullptr)
    {
        AlphaAnimation animation{duration, TimingFunction::easeInEaseOut};
        if (completion)
            animation.completion = [this, completion] { journal.record(completion); };
        return animation;
    }

    Journal journal;
    FakeClock clock;
    FakePanel panel{journal, clock, {}};
};

TEST_F(FakePanelTest, animateAlpha_duration_alphaFollowsTheCurveAndCompletionRunsAtTheEnd)
{
    panel.setAlpha(0);
    panel.animateAlpha(0.8, fade(0.2, "done"));
    journal.take();

    clock.advance(0.05);
    EXPECT_DOUBLE_EQ(panel.alpha(), 0.8 * 0.15625);
    clock.advance(0.05);
    EXPECT_DOUBLE_EQ(panel.alpha(), 0.4);
    clock.advance(0.099999);
    EXPECT_EQ(journal.take(), Lines{});
    clock.advance(0.000001);
    EXPECT_EQ(journal.take(), Lines{"done()"});
    EXPECT_DOUBLE_EQ(panel.alpha(), 0.8);
    clock.advance(1);
    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(FakePanelTest, animateAlpha_whileAnotherRuns_supersededCompletionRunsAtOnceAndOnce)
{
    panel.animateAlpha(0, fade(0.2, "first"));
    clock.advance(0.1);
    panel.animateAlpha(1, fade(0.2, "second"));

    EXPECT_EQ(journal.take(),
        (Lines{"panel.animateAlpha(0, 0.2, easeInEaseOut)",
            "panel.animateAlpha(1, 0.2, easeInEaseOut)", "first()"}));
    EXPECT_DOUBLE_EQ(panel.alpha(), 0.5);
    clock.advance(0.15);
    EXPECT_EQ(journal.take(), Lines{});
    clock.advance(0.05);
    EXPECT_EQ(journal.take(), Lines{"second()"});
}

TEST_F(FakePanelTest, setAlpha_whileAnimated_alphaStaysAndCompletionRunsAtItsTime)
{
    panel.animateAlpha(0, fade(0.2, "done"));
    clock.advance(0.1);
    panel.setAlpha(0.7);
    journal.take();

    clock.advance(0.05);
    EXPECT_DOUBLE_EQ(panel.alpha(), 0.7);
    EXPECT_EQ(journal.take(), Lines{});
    clock.advance(0.05);
    EXPECT_EQ(journal.take(), Lines{"done()"});
    EXPECT_DOUBLE_EQ(panel.alpha(), 0.7);
}

TEST_F(FakePanelTest, animateAlpha_afterSetAlphaEndedAnother_itsCompletionRunsAtOnce)
{
    panel.animateAlpha(0, fade(0.2, "done"));
    panel.setAlpha(0.7);
    journal.take();

    panel.animateAlpha(1, fade(0.2));

    EXPECT_EQ(journal.take(), (Lines{"panel.animateAlpha(1, 0.2, easeInEaseOut)", "done()"}));
    EXPECT_DOUBLE_EQ(panel.alpha(), 0.7);
}

TEST_F(FakePanelTest, destroy_whileAnimated_completionDoesNotRun)
{
    auto panel = std::make_unique<FakePanel>(journal, clock, PanelDescription{});
    panel->animateAlpha(0, fade(0.2, "done"));
    journal.take();

    panel.reset();
    clock.advance(1);

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(FakePanelTest, makeKey_panelThatCannot_staysWithoutTheKeyboard)
{
    panel.orderFrontRegardless();
    panel.makeKey();

    EXPECT_TRUE(panel.isVisible());
    EXPECT_FALSE(panel.isKey);
}

} // namespace
} // namespace sablequill
