// SPDX-License-Identifier: MIT
#include "PushButton.h"

#include "Widgets.h"

#include <QTest>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using Style = PushButton::Style;
using ControlSize = PushButton::ControlSize;

TEST(PushButton, click_andKeys_runTheAction)
{
    int clicks = 0;
    PushButton button(QStringLiteral("Continue"), Style::borderedProminent, ControlSize::regular,
        [&] { ++clicks; });
    present(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Space);
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(button.accessibleName(), QStringLiteral("Continue"));
}

TEST(PushButton, sizes_text_isElevenOrThirteenPoints)
{
    const PushButton small(QStringLiteral("New Note"), Style::bordered, ControlSize::small, [] {});
    const PushButton regular(
        QStringLiteral("New Note"), Style::bordered, ControlSize::regular, [] {});
    EXPECT_EQ(small.font().pixelSize(), 11);
    EXPECT_EQ(regular.font().pixelSize(), 13);
    EXPECT_LT(small.sizeHint().height(), regular.sizeHint().height());
}

TEST(PushButton, paint_prominent_isTheAccentColor)
{
    PushButton button(
        QStringLiteral("Continue"), Style::borderedProminent, ControlSize::regular, [] {});
    button.setPalette(paletteFor(Surroundings::light));
    button.resize(button.sizeHint());
    EXPECT_EQ(picture(button).pixelColor(4, button.height() / 2), QColor(0x00, 0x7a, 0xff));
    EXPECT_EQ(picture(button).pixelColor(0, 0).alpha() < 128, true);
}

TEST(PushButton, focus_byKeyOnly_showsARing)
{
    PushButton button(QStringLiteral("Reset"), Style::bordered, ControlSize::regular, [] {});
    button.resize(button.sizeHint());
    present(button);
    button.activateWindow();
    const QImage before = picture(button);
    button.setFocus(Qt::OtherFocusReason);
    EXPECT_EQ(picture(button), before);
    button.clearFocus();
    button.setFocus(Qt::TabFocusReason);
    EXPECT_NE(picture(button), before);
}

} // namespace
} // namespace sablequill
