// SPDX-License-Identifier: MIT
#include "Switch.h"

#include "Accessibility.h"
#include "Ink.h"
#include "Widgets.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class SwitchTest : public testing::Test {
protected:
    SwitchTest()
    {
        control.setPalette(paletteFor(Surroundings::light));
        control.resize(control.sizeHint());
        present(control);
        control.activateWindow();
    }

    /// Of a pixel in the left or right half, clear of the corners.
    QColor at(int x) { return picture(control).pixelColor(x, 10); }

    Switch control;
    QSignalSpy toggles{&control, &Switch::toggled};
};

TEST_F(SwitchTest, mouseAndKeys_each_toggleOnce)
{
    QTest::mouseClick(&control, Qt::LeftButton);
    EXPECT_TRUE(control.isChecked());
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(&control, key);
    EXPECT_FALSE(control.isChecked());
    EXPECT_EQ(toggles.count(), 4);
}

TEST_F(SwitchTest, setChecked_always_movesTheKnobAtOnce)
{
    EXPECT_EQ(at(10), QColor(Qt::white));
    control.setChecked(true);
    EXPECT_EQ(at(26), QColor(Qt::white));
    EXPECT_EQ(at(6), QColor(0x00, 0x7a, 0xff));
}

TEST_F(SwitchTest, click_shown_slidesTheKnob)
{
    QTest::mouseClick(&control, Qt::LeftButton);
    EXPECT_EQ(at(10), QColor(Qt::white));
    EXPECT_TRUE(waitFor([&] { return at(6) == QColor(0x00, 0x7a, 0xff); }));
    EXPECT_EQ(at(26), QColor(Qt::white));
}

TEST_F(SwitchTest, click_duringASlide_endsWhereTheStateIs)
{
    QTest::mouseClick(&control, Qt::LeftButton);
    QTest::mouseClick(&control, Qt::LeftButton);
    EXPECT_TRUE(waitFor([&] { return at(10) == QColor(Qt::white); }));
    control.setChecked(true);
    EXPECT_EQ(at(26), QColor(Qt::white));
}

TEST_F(SwitchTest, focus_byKeyOnly_showsARing)
{
    const QImage before = picture(control);
    control.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(picture(control), before);
    control.clearFocus();
    control.setFocus(Qt::TabFocusReason);
    EXPECT_NE(picture(control), before);
}

TEST_F(SwitchTest, accessible_state_isCheckedOrNot)
{
    EXPECT_TRUE(accessible(control).state().checkable);
    EXPECT_FALSE(accessible(control).state().checked);
    pressAccessibly(control);
    EXPECT_TRUE(waitFor([&] { return control.isChecked(); }));
    EXPECT_TRUE(accessible(control).state().checked);
}

} // namespace
} // namespace sablequill
