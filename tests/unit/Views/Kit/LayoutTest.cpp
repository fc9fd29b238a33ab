// SPDX-License-Identifier: MIT
#include "Layout.h"

#include "Ink.h"
#include "Widgets.h"

#include <QMouseEvent>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>

namespace sablequill {
namespace {

QWidget* block(const char* name, int width, int height)
{
    auto* widget = new QWidget;
    widget->setFixedSize(width, height);
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QRect frameOf(const std::unique_ptr<QWidget>& root, const char* name)
{
    return frameIn(*root, found(*root, QString::fromLatin1(name)));
}

std::unique_ptr<QWidget> laidOut(QWidget* root, int width, int height)
{
    std::unique_ptr<QWidget> owned(root);
    owned->resize(width, height);
    present(*owned);
    return owned;
}

TEST(Layout, row_withSpacer_sharesSpacingAndPushesApart)
{
    const auto root = laidOut(
        padded(insets(14, 10),
            row(10, {block("a", 20, 24), block("b", 30, 12), spacer(), block("c", 24, 24)})),
        200, 44);
    EXPECT_EQ(frameOf(root, "a"), QRect(14, 10, 20, 24));
    EXPECT_EQ(frameOf(root, "b"), QRect(44, 16, 30, 12));
    EXPECT_EQ(frameOf(root, "c"), QRect(162, 10, 24, 24));
}

TEST(Layout, row_topAligned_startsAtTheTop)
{
    const auto root =
        laidOut(row(8, {block("a", 20, 24), block("b", 30, 12)}, VerticalAlignment::top), 58, 24);
    EXPECT_EQ(frameOf(root, "b"), QRect(28, 0, 30, 12));
}

TEST(Layout, row_withSpacer_needsItsSpacingTwiceAndEightPoints)
{
    const std::unique_ptr<QWidget> root(
        row(10, {block("a", 20, 10), spacer(), block("b", 20, 10)}));
    EXPECT_EQ(root->sizeHint(), QSize(20 + 10 + 8 + 10 + 20, 10));
}

TEST(Layout, column_children_standBelowEachOther)
{
    const auto root = laidOut(
        column(16, {block("a", 20, 24), divider(), block("b", 40, 10), spacer()}), 100, 200);
    EXPECT_EQ(frameOf(root, "a"), QRect(40, 0, 20, 24));
    EXPECT_EQ(frameOf(root, "b"), QRect(30, 24 + 16 + 1 + 16, 40, 10));
}

TEST(Layout, column_leading_keepsToTheEdgeAndStretchesRowsWithSpacers)
{
    const auto root =
        laidOut(column(4, {block("a", 20, 10), row(8, {spacer(), block("b", 30, 10)})},
                    HorizontalAlignment::leading),
            100, 24);
    EXPECT_EQ(frameOf(root, "a"), QRect(0, 0, 20, 10));
    EXPECT_EQ(frameOf(root, "b"), QRect(70, 14, 30, 10));
}

TEST(Layout, column_rightToLeft_isMirrored)
{
    std::unique_ptr<QWidget> root(column(4, {block("a", 20, 10)}, HorizontalAlignment::leading));
    root->setLayoutDirection(Qt::RightToLeft);
    root->resize(100, 10);
    present(*root);
    EXPECT_EQ(frameOf(root, "a"), QRect(80, 0, 20, 10));
}

TEST(Layout, padded_twice_addsUp)
{
    const std::unique_ptr<QWidget> root(
        padded({0, 0, 0, 8}, padded(insets(12), column(0, {block("a", 10, 10)}))));
    EXPECT_EQ(root->sizeHint(), QSize(34, 42));
}

TEST(Layout, padded_plainWidget_getsAFrameOfItsOwn)
{
    const auto root = laidOut(padded(insets(3, 5), block("a", 10, 10)), 16, 20);
    EXPECT_EQ(frameOf(root, "a"), QRect(3, 5, 10, 10));
}

TEST(Layout, divider_anywhere_isOnePointOfTheDividerColor)
{
    const std::unique_ptr<QWidget> line(divider(0.3));
    line->setPalette(paletteFor(Surroundings::dark));
    EXPECT_EQ(line->height(), 1);
    line->resize(10, 1);
    EXPECT_NEAR(picture(*line).pixelColor(5, 0).alphaF(), 0.03, 0.005);
}

class Background : public QWidget {
public:
    int presses = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
};

TEST(Layout, press_onTheGroundOfARow_reachesTheWindow)
{
    Background window;
    QWidget* content = padded(insets(10), row(8, {block("a", 20, 20), spacer()}));
    content->setParent(&window);
    content->resize(100, 40);
    window.resize(100, 40);
    present(window);
    QTest::mouseClick(window.childAt(80, 20), Qt::LeftButton);
    QTest::mouseClick(content, Qt::LeftButton, {}, QPoint(2, 2));
    EXPECT_EQ(window.presses, 2);
}

TEST(Layout, named_control_carriesNamesAndTooltip)
{
    const std::unique_ptr<QWidget> control(named(QStringLiteral("hide"),
        QStringLiteral("Hide overlay"), new QWidget, QStringLiteral("Hide the overlay")));
    EXPECT_EQ(control->objectName(), QStringLiteral("hide"));
    EXPECT_EQ(control->accessibleName(), QStringLiteral("Hide overlay"));
    EXPECT_EQ(control->toolTip(), QStringLiteral("Hide the overlay"));
}

} // namespace
} // namespace sablequill
