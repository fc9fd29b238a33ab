// SPDX-License-Identifier: MIT
#include "PagedView.h"

#include "Widgets.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class PagedViewTest : public testing::Test {
protected:
    PagedViewTest() { view.resize(480, 340); }

    bool isOnlyShown(int page) const
    {
        for (int i = 0; i < 3; ++i)
            if (pages[i]->isVisibleTo(&view) != (i == page))
                return false;
        return pages[page]->geometry() == view.rect();
    }

    QWidget* pages[3] = {new QLineEdit, new QLineEdit, new QLineEdit};
    PagedView view{{pages[0], pages[1], pages[2]}};
};

TEST_F(PagedViewTest, construct_always_showsTheFirstPage)
{
    present(view);
    EXPECT_EQ(view.currentPage(), 0);
    EXPECT_TRUE(isOnlyShown(0));
}

TEST_F(PagedViewTest, setCurrentPage_notShown_isThereAtOnce)
{
    view.setCurrentPage(2);
    EXPECT_EQ(view.currentPage(), 2);
    EXPECT_TRUE(isOnlyShown(2));
}

TEST_F(PagedViewTest, setCurrentPage_shown_slidesToThePage)
{
    present(view);
    view.setCurrentPage(1);
    EXPECT_EQ(view.currentPage(), 1);
    EXPECT_FALSE(isOnlyShown(1));
    EXPECT_TRUE(waitFor([&] { return pages[0]->x() < 0 && pages[0]->x() > -480; }));
    EXPECT_EQ(pages[1]->x(), pages[0]->x() + 480);
    EXPECT_TRUE(waitFor([&] { return isOnlyShown(1); }));
}

TEST_F(PagedViewTest, setCurrentPage_duringASlide_endsAtTheLastOne)
{
    present(view);
    view.setCurrentPage(1);
    EXPECT_TRUE(waitFor([&] { return pages[0]->x() < 0; }));
    view.setCurrentPage(2);
    view.setCurrentPage(0);
    EXPECT_TRUE(waitFor([&] { return isOnlyShown(0); }));
}

TEST_F(PagedViewTest, setCurrentPage_noSuchPage_isIgnored)
{
    for (const int page : {-1, 3, 100}) {
        view.setCurrentPage(page);
        EXPECT_EQ(view.currentPage(), 0) << page;
    }
}

TEST_F(PagedViewTest, resize_always_eachPageGetsTheWholeArea)
{
    present(view);
    view.resize(500, 300);
    EXPECT_EQ(pages[0]->geometry(), QRect(0, 0, 500, 300));
}

TEST_F(PagedViewTest, tabKey_otherPages_areNotReached)
{
    present(view);
    view.activateWindow();
    pages[0]->setFocus();
    QTest::keyClick(pages[0], Qt::Key_Tab);
    EXPECT_TRUE(pages[0]->hasFocus());
}

} // namespace
} // namespace sablequill
