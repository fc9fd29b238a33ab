// SPDX-License-Identifier: MIT
#include "PanelCard.h"

#include "Ink.h"
#include "Widgets.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class PanelCardTest : public testing::Test {
protected:
    PanelCardTest()
    {
        content->setFixedSize(280, 200);
        card.setPalette(paletteFor(Surroundings::light));
        fit();
    }

    /// Gives the card the size that a panel of its content's size gives it.
    void fit()
    {
        card.resize(card.contentSize().grownBy(card.shadowReach()));
        present(card);
    }

    /// Of a pixel in the card; negative places lie in the shadow.
    QColor at(int x, int y)
    {
        const QMargins reach = card.shadowReach();
        return picture(card).pixelColor(reach.left() + x, reach.top() + y);
    }

    static QColor ground(Surroundings surroundings)
    {
        return paletteFor(surroundings).color(QPalette::Window);
    }

    QWidget* content = new QWidget;
    PanelCard card{content};
};

TEST_F(PanelCardTest, contentSize_fixedContent_isItsSize)
{
    EXPECT_EQ(card.contentSize(), QSize(280, 200));
    content->setFixedSize(300, 100);
    EXPECT_EQ(card.contentSize(), QSize(300, 100));
}

TEST_F(PanelCardTest, content_composited_liesInsideTheShadow)
{
    const QMargins reach = card.shadowReach();
    EXPECT_FALSE(reach.isNull());
    EXPECT_EQ(content->geometry(), QRect(reach.left(), reach.top(), 280, 200));
}

TEST_F(PanelCardTest, paint_composited_isARoundedCardWithAShadow)
{
    EXPECT_EQ(at(140, 100), ground(Surroundings::light));
    EXPECT_LT(at(0, 0).alpha(), 255);
    EXPECT_GT(at(-2, 100).alpha(), 0);
    EXPECT_LT(at(-2, 100).alpha(), 255);
    EXPECT_NE(at(0, 100), at(140, 100));
}

TEST_F(PanelCardTest, setComposited_false_isAnOpaqueCardWithoutMargins)
{
    card.setComposited(false);
    fit();
    EXPECT_TRUE(card.shadowReach().isNull());
    EXPECT_EQ(content->geometry(), QRect(0, 0, 280, 200));
    EXPECT_EQ(at(0, 0).alpha(), 255);
    EXPECT_EQ(at(140, 100), ground(Surroundings::light));
}

TEST_F(PanelCardTest, palette_changed_isDrawnAnew)
{
    EXPECT_EQ(at(140, 100), ground(Surroundings::light));
    card.setPalette(paletteFor(Surroundings::dark));
    EXPECT_EQ(at(140, 100), ground(Surroundings::dark));
    EXPECT_EQ(surroundingsOf(*content), Surroundings::dark);
}

TEST_F(PanelCardTest, resize_always_isDrawnAnew)
{
    content->setFixedSize(280, 400);
    fit();
    EXPECT_EQ(at(140, 390), ground(Surroundings::light));
}

} // namespace
} // namespace sablequill
