// SPDX-License-Identifier: MIT
#include "OverlayScrollBar.h"

#include "Widgets.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class OverlayScrollBarTest : public testing::Test {
protected:
    OverlayScrollBarTest()
    {
        area.setFrameShape(QFrame::NoFrame);
        area.resize(200, 100);
        present(area);
    }

    void fill(int lines)
    {
        area.setPlainText(QStringLiteral("line\n").repeated(lines));
        turn();
    }

    QPlainTextEdit area;
    OverlayScrollBar bar{&area};
};

TEST_F(OverlayScrollBarTest, content_thatFits_hasNoBar)
{
    EXPECT_FALSE(bar.isVisible());
    fill(100);
    EXPECT_TRUE(bar.isVisible());
    fill(1);
    EXPECT_FALSE(bar.isVisible());
}

TEST_F(OverlayScrollBarTest, bar_shown_takesNoRoomFromTheContent)
{
    const int before = area.viewport()->width();
    fill(100);
    EXPECT_EQ(area.viewport()->width(), before);
    EXPECT_EQ(area.viewport()->width(), 200);
}

TEST_F(OverlayScrollBarTest, bar_resizedArea_staysAtTheTrailingEdge)
{
    fill(100);
    area.resize(300, 150);
    EXPECT_EQ(bar.geometry(), QRect(285, 4, 10, 142));
}

TEST_F(OverlayScrollBarTest, thumb_scrolledArea_followsTheValue)
{
    fill(100);
    EXPECT_DOUBLE_EQ(bar.thumb().top(), 0);
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    EXPECT_DOUBLE_EQ(bar.thumb().bottom(), bar.height());
    EXPECT_GE(bar.thumb().height(), 24);
}

TEST_F(OverlayScrollBarTest, drag_ofTheThumb_scrolls)
{
    fill(100);
    const QScrollBar& own = *area.verticalScrollBar();
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(7, 5));
    EXPECT_EQ(own.value(), 0);
    QTest::mouseMove(&bar, QPoint(7, 5 + bar.height()));
    turn();
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(7, 5 + bar.height()));
    EXPECT_EQ(own.value(), own.maximum());
}

TEST_F(OverlayScrollBarTest, press_besideTheThumb_jumpsThere)
{
    fill(100);
    const QScrollBar& own = *area.verticalScrollBar();
    QTest::mouseClick(&bar, Qt::LeftButton, {}, QPoint(7, bar.height() / 2));
    EXPECT_NEAR(own.value(), own.maximum() / 2, 2);
}

} // namespace
} // namespace sablequill
