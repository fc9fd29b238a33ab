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

/// A card of each size is one piece: no row or column of the card's middle differs from the others.
class PanelCardSizeTest : public PanelCardTest, public testing::WithParamInterface<QSize> { };

TEST_P(PanelCardSizeTest, paint_composited_hasNoSeamAndTwoLikeSides)
{
    content->setFixedSize(GetParam());
    fit();
    const QImage drawn = picture(card).convertToFormat(QImage::Format_ARGB32);
    EXPECT_EQ(drawn, drawn.mirrored(true, false));
    const QRect inside = QRect(QPoint(), card.size())
                             .marginsRemoved(card.shadowReach())
                             .marginsRemoved({2, 24, 2, 24});
    QImage flat(inside.size(), QImage::Format_ARGB32);
    flat.fill(ground(Surroundings::light));
    EXPECT_EQ(drawn.copy(inside), flat);
}

INSTANTIATE_TEST_SUITE_P(Sizes, PanelCardSizeTest,
    testing::Values(QSize(280, 200), QSize(281, 201), QSize(131, 155), QSize(130, 154),
        QSize(129, 153), QSize(90, 60), QSize(91, 61)));

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
