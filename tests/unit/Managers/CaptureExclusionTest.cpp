// SPDX-License-Identifier: MIT
#include "CaptureExclusion.h"

#include "FakePanel.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using Lines = std::vector<std::string>;

class CaptureExclusionTest : public testing::Test {
protected:
    Journal journal;
    FakeClock clock;
    FakePanel panel{journal, clock, {}};
};

TEST_F(CaptureExclusionTest, apply_anyPanel_sharingTypeNoneThenFloating)
{
    CaptureExclusion::apply(panel);

    EXPECT_EQ(journal.take(), (Lines{"panel.setSharingType(0)", "panel.setLevel(3)"}));
}

TEST_F(CaptureExclusionTest, apply_twice_bothReachThePanel)
{
    CaptureExclusion::apply(panel);
    CaptureExclusion::apply(panel);

    EXPECT_EQ(journal.take(),
        (Lines{"panel.setSharingType(0)", "panel.setLevel(3)", "panel.setSharingType(0)",
            "panel.setLevel(3)"}));
}

TEST_F(CaptureExclusionTest, remove_afterApply_readOnlyAtTheFloatingLevel)
{
    CaptureExclusion::apply(panel);
    journal.take();

    CaptureExclusion::remove(panel);

    EXPECT_EQ(journal.take(), Lines{"panel.setSharingType(1)"});
    EXPECT_EQ(panel.sharingType, SharingType::readOnly);
    EXPECT_EQ(panel.level, WindowLevel::floating);
}

TEST_F(CaptureExclusionTest, remove_panelAtTheNormalLevel_levelStays)
{
    CaptureExclusion::remove(panel);

    EXPECT_EQ(panel.level, WindowLevel::normal);
}

TEST_F(CaptureExclusionTest, isSupported_desktopWithoutTheLibraries_false)
{
    EXPECT_FALSE(CaptureExclusion::isSupported());
    EXPECT_FALSE(CaptureExclusion::isSupported());
}

} // namespace
} // namespace sablequill
