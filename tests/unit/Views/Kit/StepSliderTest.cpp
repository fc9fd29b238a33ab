// SPDX-License-Identifier: MIT
#include "StepSlider.h"

#include "Accessibility.h"
#include "Widgets.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class StepSliderTest : public testing::Test {
protected:
    StepSliderTest()
    {
        slider.resize(318, 20);
        slider.setValue(92);
        present(slider);
        slider.activateWindow();
        slider.setFocus(Qt::TabFocusReason);
        values.clear();
    }

    QPoint knobAt(int value) const
    {
        return {static_cast<int>(slider.knobCenter(value)), slider.height() / 2};
    }

    void wheel(QPoint angle)
    {
        QWheelEvent event(QPointF(5, 5), slider.mapToGlobal(QPointF(5, 5)), {}, angle, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&slider, &event);
    }

    /// The values announced since the last call.
    std::vector<int> announced()
    {
        std::vector<int> list;
        for (const auto& arguments : values)
            list.push_back(arguments.at(0).toInt());
        values.clear();
        return list;
    }

    StepSlider slider{40, 100, 2};
    QSignalSpy values{&slider, &QAbstractSlider::valueChanged};
};

using Values = std::vector<int>;

TEST_F(StepSliderTest, nearestStep_anyValue_isOnAStepInTheRange)
{
    struct Row {
        double value;
        int step;
    };
    for (const Row row : {Row{40, 40}, {40.9, 40}, {41, 42}, {92, 92}, {93.1, 94}, {99.2, 100},
             {0, 40}, {-1e300, 40}, {1e300, 100}})
        EXPECT_EQ(slider.nearestStep(row.value), row.step) << row.value;
}

TEST_F(StepSliderTest, keys_each_moveByStepsAndPages)
{
    struct Row {
        Qt::Key key;
        int value;
    };
    for (const Row row :
        {Row{Qt::Key_Left, 90}, {Qt::Key_Down, 88}, {Qt::Key_Right, 90}, {Qt::Key_Up, 92},
            {Qt::Key_PageDown, 82}, {Qt::Key_PageUp, 92}, {Qt::Key_Home, 40}, {Qt::Key_End, 100}}) {
        QTest::keyClick(&slider, row.key);
        EXPECT_EQ(announced(), Values{row.value}) << row.key;
    }
}

TEST_F(StepSliderTest, keys_atTheEnds_changeNothing)
{
    slider.setValue(100);
    announced();
    QTest::keyClick(&slider, Qt::Key_Right);
    QTest::keyClick(&slider, Qt::Key_PageUp);
    EXPECT_EQ(announced(), Values{});

    slider.setValue(40);
    announced();
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_EQ(announced(), Values{});
}

TEST_F(StepSliderTest, mouse_pressOnTheTrack_movesTheKnobThere)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, knobAt(60));
    EXPECT_EQ(announced(), Values{60});
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, knobAt(60));
    EXPECT_EQ(announced(), Values{});
}

TEST_F(StepSliderTest, mouse_drag_announcesEachStepOnce)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, knobAt(60));
    announced();
    for (int x = knobAt(60).x(); x <= knobAt(66).x(); ++x)
        QTest::mouseMove(&slider, {x, 10});
    EXPECT_EQ(announced(), (Values{62, 64, 66}));
}

TEST_F(StepSliderTest, mouse_dragBeyondTheEnds_staysInTheRange)
{
    QTest::mousePress(&slider, Qt::LeftButton, {}, knobAt(60));
    QTest::mouseMove(&slider, {-500, 10});
    EXPECT_EQ(slider.value(), 40);
    QTest::mouseMove(&slider, {5000, 10});
    EXPECT_EQ(slider.value(), 100);
}

TEST_F(StepSliderTest, mouse_otherButtonOrNoPress_changesNothing)
{
    QTest::mouseClick(&slider, Qt::RightButton, {}, knobAt(60));
    QTest::mouseMove(&slider, knobAt(50));
    EXPECT_EQ(announced(), Values{});
}

TEST_F(StepSliderTest, wheel_wholeNotches_moveByOneStepEach)
{
    wheel({0, 120});
    EXPECT_EQ(announced(), Values{94});
    wheel({0, -240});
    EXPECT_EQ(announced(), Values{90});
}

TEST_F(StepSliderTest, wheel_partsOfANotch_addUp)
{
    wheel({0, -60});
    EXPECT_EQ(announced(), Values{});
    wheel({0, -60});
    EXPECT_EQ(announced(), Values{90});
}

TEST_F(StepSliderTest, knobCenter_ends_knobIsWhollyInside)
{
    EXPECT_EQ(slider.knobCenter(40), 9);
    EXPECT_EQ(slider.knobCenter(70), 159);
    EXPECT_EQ(slider.knobCenter(100), 309);
}

TEST_F(StepSliderTest, paint_value_fillsTheTrackUpToTheKnob)
{
    slider.setPalette(paletteFor(Surroundings::light));
    slider.setValue(70);
    const QImage image = picture(slider);
    EXPECT_EQ(image.pixelColor(30, 10), QColor(0x00, 0x7a, 0xff));
    EXPECT_EQ(image.pixelColor(159, 10), QColor(Qt::white));
    EXPECT_NE(image.pixelColor(290, 10), QColor(0x00, 0x7a, 0xff));
}

TEST_F(StepSliderTest, accessible_value_isInTheSlidersUnits)
{
    QAccessibleValueInterface* value = accessible(slider).valueInterface();
    ASSERT_TRUE(value);
    EXPECT_EQ(accessible(slider).role(), QAccessible::Slider);
    EXPECT_EQ(value->currentValue().toInt(), 92);
    EXPECT_EQ(value->minimumValue().toInt(), 40);
    EXPECT_EQ(value->maximumValue().toInt(), 100);
    EXPECT_EQ(value->minimumStepSize().toInt(), 2);
    value->setCurrentValue(50);
    EXPECT_EQ(announced(), Values{50});
}

} // namespace
} // namespace sablequill
