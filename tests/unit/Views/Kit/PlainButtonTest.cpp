// SPDX-License-Identifier: MIT
#include "PlainButton.h"

#include "Layout.h"
#include "SymbolView.h"
#include "TextLabel.h"
#include "Widgets.h"

#include <QTest>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

const Backdrop circle{Backdrop::Shape::circle, {InkRole::primary, 0.06}};

class PlainButtonTest : public testing::Test {
protected:
    PlainButtonTest()
    {
        window.setPalette(paletteFor(Surroundings::dark));
        window.resize(100, 100);
        first->setParent(&window);
        first->setGeometry(10, 10, 24, 24);
        second->setParent(&window);
        second->setGeometry(50, 10, 24, 24);
        present(window);
        window.activateWindow();
        // A window that becomes active gives the focus to its first control.
        first->clearFocus();
    }

    PlainButton* makeButton()
    {
        return new PlainButton(
            new SymbolView({QStringLiteral("minus"), 11, QFont::DemiBold}, {InkRole::secondary}),
            circle, [this] { ++clicks; });
    }

    void setHovered(QWidget* button, bool isHovered)
    {
        QEvent leave(QEvent::Leave);
        QEnterEvent enter(QPointF(12, 12), QPointF(), QPointF());
        QCoreApplication::sendEvent(button, isHovered ? &enter : &leave);
    }

    QColor pixel(int x, int y) { return picture(window).pixelColor(x, y); }

    int clicks = 0;
    QWidget window;
    PlainButton* first = makeButton();
    PlainButton* second = makeButton();
};

TEST_F(PlainButtonTest, click_onTheLabel_runsTheActionOnce)
{
    QTest::mouseClick(window.childAt(22, 22), Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(PlainButtonTest, key_spaceReturnAndEnter_runTheAction)
{
    first->setFocus(Qt::TabFocusReason);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter})
        QTest::keyClick(first, key);
    EXPECT_EQ(clicks, 3);
}

TEST_F(PlainButtonTest, click_anywhere_takesNoFocus)
{
    ASSERT_FALSE(first->hasFocus());
    QTest::mouseClick(first, Qt::LeftButton);
    EXPECT_FALSE(first->hasFocus());
}

TEST_F(PlainButtonTest, paint_atRest_isTheBackdropInItsShape)
{
    EXPECT_NEAR(pixel(22, 14).alphaF(), 0.85 * 0.06, 0.01);
    EXPECT_EQ(pixel(11, 11).alpha(), 0);
}

TEST_F(PlainButtonTest, paint_underThePointer_isBrighterAndDullsAgain)
{
    const QColor rest = pixel(22, 14);
    const QColor symbolAtRest = pixel(22, 22);
    setHovered(first, true);
    EXPECT_TRUE(first->isHovered());
    EXPECT_GT(pixel(22, 14).alpha(), rest.alpha());
    EXPECT_GT(pixel(22, 22).alpha(), symbolAtRest.alpha());
    setHovered(first, false);
    EXPECT_EQ(pixel(22, 14), rest);
}

TEST_F(PlainButtonTest, paint_inset_leavesTheEdgesClear)
{
    PlainButton wide(
        new QWidget, {Backdrop::Shape::roundedRectangle, {InkRole::white}, 0, 5}, [] {});
    wide.resize(60, 20);
    const QImage drawn = picture(wide);
    for (const int x : {0, 4, 55, 59})
        EXPECT_EQ(drawn.pixelColor(x, 10).alpha(), 0) << x;
    for (const int x : {5, 54})
        EXPECT_EQ(drawn.pixelColor(x, 10).alpha(), 255) << x;
}

TEST_F(PlainButtonTest, paint_pressed_answers)
{
    const QColor rest = pixel(22, 14);
    QTest::mousePress(first, Qt::LeftButton);
    EXPECT_GT(pixel(22, 14).alpha(), rest.alpha());
    QTest::mouseRelease(first, Qt::LeftButton);
    EXPECT_EQ(clicks, 1);
}

TEST_F(PlainButtonTest, hide_underThePointer_forgetsThePointer)
{
    setHovered(first, true);
    first->hide();
    first->show();
    EXPECT_FALSE(first->isHovered());
}

TEST_F(PlainButtonTest, focus_byKey_showsARing)
{
    const QImage before = picture(window);
    first->setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(first->hasFocus());
    EXPECT_EQ(pixel(22, 11), QColor(0x0a, 0x84, 0xff));
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_EQ(pixel(62, 11), QColor(0x0a, 0x84, 0xff));
    second->clearFocus();
    EXPECT_EQ(picture(window), before);
}

TEST_F(PlainButtonTest, focus_byOtherMeans_showsNoRing)
{
    const QImage before = picture(window);
    first->setFocus(Qt::OtherFocusReason);
    ASSERT_TRUE(first->hasFocus());
    EXPECT_EQ(picture(window), before);
}

TEST_F(PlainButtonTest, around_labelInARow_isTheButton)
{
    auto* text = new TextLabel(QStringLiteral("New"));
    PlainButton button(row(4, {text, spacer()}), {}, [] {});
    EXPECT_EQ(PlainButton::around(*text), &button);
    EXPECT_EQ(PlainButton::around(window), nullptr);
}

TEST_F(PlainButtonTest, layout_rowAsLabel_fillsTheButton)
{
    auto* text = new TextLabel(QStringLiteral("Title"));
    auto* mark = new SymbolView({QStringLiteral("checkmark"), 10});
    PlainButton button(row(8, {text, spacer(), mark}), {}, [] {});
    button.resize(200, 24);
    present(button);
    EXPECT_EQ(frameIn(button, *text).x(), 0);
    EXPECT_EQ(frameIn(button, *mark).right(), 199);
}

} // namespace
} // namespace sablequill
