// SPDX-License-Identifier: MIT
#include "PopupStyle.h"

#include "Ink.h"
#include "TextStyle.h"
#include "Widgets.h"

#include <QApplication>
#include <QMenu>
#include <QStyleOption>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class PopupStyleTest : public testing::Test {
protected:
    PopupStyleTest()
    {
        menu.setStyle(&style);
        menu.setPalette(paletteFor(Surroundings::dark));
        first = menu.addAction(QStringLiteral("&Copy"));
        first->setShortcut(QKeySequence::Copy);
        menu.addSeparator();
        last = menu.addAction(QStringLiteral("Delete"));
    }

    ~PopupStyleTest() override { menu.setStyle(nullptr); }

    void open()
    {
        menu.popup(QPoint(10, 10));
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
    }

    /// Of the ground beside an item's title.
    QColor ground(QAction* action)
    {
        return picture(menu).pixelColor(menu.actionGeometry(action).topLeft() + QPoint(5, 12));
    }

    /// Whether a color is anywhere in an item.
    bool shows(QAction* action, const QColor& color)
    {
        const QRect area = menu.actionGeometry(action);
        const QImage drawn = picture(menu);
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (drawn.pixelColor(x, y) == color)
                    return true;
        return false;
    }

    PopupStyle style;
    QMenu menu;
    QAction* first = nullptr;
    QAction* last = nullptr;
};

const QColor accent(0x0a, 0x84, 0xff);
const QColor red(0xff, 0x45, 0x3a);

TEST_F(PopupStyleTest, menu_items_standOnTheirOwnGround)
{
    open();
    EXPECT_EQ(menu.font().pixelSize(), 13);
    EXPECT_EQ(menu.actionGeometry(first).topLeft(), QPoint(5, 5));
    EXPECT_EQ(menu.actionGeometry(first).height(), 24);
    EXPECT_EQ(menu.actionGeometry(last).top(), 5 + 24 + 11);
    EXPECT_EQ(menu.height(), 24 + 11 + 24 + 10);
    EXPECT_EQ(ground(first), menu.palette().color(QPalette::Base));
}

TEST_F(PopupStyleTest, menu_corners_areCutOffAlike)
{
    open();
    const QRegion shape = menu.mask();
    const int right = menu.width() - 1;
    const int bottom = menu.height() - 1;
    for (const int inset : {0, 1})
        for (const QPoint corner : {QPoint(inset, inset), QPoint(right - inset, inset),
                 QPoint(inset, bottom - inset), QPoint(right - inset, bottom - inset)})
            EXPECT_FALSE(shape.contains(corner)) << corner.x() << ' ' << corner.y();
    for (const QPoint middle : {QPoint(0, bottom / 2), QPoint(right, bottom / 2),
             QPoint(right / 2, 0), QPoint(right / 2, bottom)})
        EXPECT_TRUE(shape.contains(middle)) << middle.x() << ' ' << middle.y();
}

TEST_F(PopupStyleTest, item_chosen_isOnTheAccentColor)
{
    open();
    menu.setActiveAction(first);
    EXPECT_EQ(ground(first), accent);
    EXPECT_NE(ground(last), accent);
}

TEST_F(PopupStyleTest, item_disabled_answersNothing)
{
    first->setEnabled(false);
    open();
    const QColor before = ground(first);
    menu.setActiveAction(first);
    EXPECT_EQ(ground(first), before);
}

TEST_F(PopupStyleTest, item_destructive_isRed)
{
    PopupStyle::setDestructive(*last);
    first->setText(QStringLiteral("\u2588"));
    last->setText(QStringLiteral("\u2588"));
    open();
    EXPECT_TRUE(shows(last, red));
    EXPECT_FALSE(shows(first, red));
    menu.setActiveAction(last);
    EXPECT_EQ(ground(last), red);
}

TEST_F(PopupStyleTest, polish_application_setsTooltipsInSmallType)
{
    ASSERT_NE(QToolTip::font(), font(TextStyles::subheadline));
    style.polish(qApp);
    EXPECT_EQ(QToolTip::font(), font(TextStyles::subheadline));
}

TEST_F(PopupStyleTest, tooltip_text_hasRoomAround)
{
    EXPECT_EQ(style.pixelMetric(QStyle::PM_ToolTipLabelFrameWidth, nullptr, nullptr), 4);
}

} // namespace
} // namespace sablequill
