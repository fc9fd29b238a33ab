// SPDX-License-Identifier: MIT
#include "AlphaAnimator.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace sablequill {
namespace {

class AlphaAnimatorTest : public testing::Test {
protected:
    /// Turns the main loop until the condition holds; false when it does not within seconds.
    static bool waitUntil(const std::function<bool()>& condition)
    {
        const QDeadlineTimer deadline(5000);
        while (!condition() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
        return condition();
    }

    std::vector<double> applied;
    std::vector<std::string> completed;
    AlphaAnimator animator{[this](double alpha) { applied.push_back(alpha); }};

    AlphaAnimation animation(double duration, const std::string& name)
    {
        return {duration, TimingFunction::easeInEaseOut, [=, this] { completed.push_back(name); }};
    }
};

TEST_F(AlphaAnimatorTest, setAlpha_appliesAtOnce)
{
    animator.setAlpha(0.4);
    EXPECT_EQ(applied, std::vector{0.4});
    EXPECT_EQ(animator.alpha(), 0.4);
}

TEST_F(AlphaAnimatorTest, animate_fallsMonotonicallyToItsTargetThenCompletes)
{
    animator.setAlpha(0.9);
    // On a machine that is slow and busy the first turn takes half a second.
    animator.animate(0, animation(1, "hide"));

    ASSERT_TRUE(waitUntil([&] { return !completed.empty(); }));
    EXPECT_EQ(animator.alpha(), 0);
    EXPECT_GT(applied.size(), 2U);
    EXPECT_TRUE(std::is_sorted(applied.rbegin(), applied.rend()));
    EXPECT_EQ(completed, std::vector<std::string>{"hide"});
}

TEST_F(AlphaAnimatorTest, animate_whileAnotherRuns_completesThatFirst)
{
    animator.setAlpha(0.9);
    animator.animate(0, {10, TimingFunction::easeInEaseOut, [this] {
                             completed.emplace_back("hide");
                             animator.setAlpha(0.9);
                         }});
    animator.animate(0.9, {0.22, TimingFunction::easeInEaseOut, {}});

    EXPECT_EQ(completed, std::vector<std::string>{"hide"});
    EXPECT_EQ(animator.alpha(), 0.9);
}

TEST_F(AlphaAnimatorTest, animate_toTheSameAlphaWithoutCompletion_appliesNothing)
{
    animator.setAlpha(0.9);
    applied.clear();
    animator.animate(0.9, {0.01, TimingFunction::easeInEaseOut, {}});
    animator.animate(0.9, animation(0.02, "end"));

    ASSERT_TRUE(waitUntil([&] { return !completed.empty(); }));
    EXPECT_TRUE(applied.empty());
}

TEST_F(AlphaAnimatorTest, setAlpha_whileAnimating_holdsAndStillCompletes)
{
    animator.setAlpha(0.9);
    // On a machine that is slow and busy the first turn takes half a second.
    animator.animate(0, animation(1, "hide"));
    animator.setAlpha(0.6);

    ASSERT_TRUE(waitUntil([&] { return !completed.empty(); }));
    EXPECT_EQ(animator.alpha(), 0.6);
}

} // namespace
} // namespace sablequill
