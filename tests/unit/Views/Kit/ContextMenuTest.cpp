// SPDX-License-Identifier: MIT
#include "ContextMenu.h"

#include "Widgets.h"

#include <QApplication>
#include <QPointer>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class ContextMenuTest : public testing::Test {
protected:
    ContextMenuTest()
    {
        present(window);
        present(other);
        menu->addAction(QStringLiteral("Copy"));
    }

    void activate(QWidget& next)
    {
        next.activateWindow();
        ASSERT_TRUE(waitFor([&] { return next.isActiveWindow(); }));
    }

    QWidget window;
    QWidget other;
    QPointer<QMenu> menu = new QMenu(&window);
};

TEST_F(ContextMenuTest, open_activeWindow_isThereAtOnceForOneTime)
{
    activate(window);
    openContextMenu(menu, QPoint(20, 30));
    ASSERT_TRUE(menu->isVisible());
    EXPECT_EQ(menu->pos(), QPoint(20, 30));
    menu->close();
    EXPECT_TRUE(waitFor([&] { return menu.isNull(); }));
}

TEST_F(ContextMenuTest, open_windowAboutToBeActive_waitsForThat)
{
    activate(other);
    openContextMenu(menu, QPoint(20, 30));
    EXPECT_FALSE(menu->isVisible());
    activate(window);
    EXPECT_TRUE(waitFor([&] { return menu->isVisible(); }));
    EXPECT_TRUE(window.isActiveWindow());
}

TEST_F(ContextMenuTest, open_windowThatStaysInactive_isThereAfterAMoment)
{
    activate(other);
    openContextMenu(menu, QPoint(20, 30));
    EXPECT_TRUE(waitFor([&] { return menu->isVisible(); }));
    EXPECT_FALSE(window.isActiveWindow());
}

TEST_F(ContextMenuTest, open_viewGoesAway_opensNothing)
{
    activate(other);
    openContextMenu(menu, QPoint(20, 30));
    delete menu;
    activate(window);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

} // namespace
} // namespace sablequill
