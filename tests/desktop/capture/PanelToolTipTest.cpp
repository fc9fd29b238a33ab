// SPDX-License-Identifier: MIT
#include "BusConnection.h"
#include "PanelWindow.h"

#include <QCursor>
#include <QToolTip>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

TEST(PanelToolTipTest, hover_panelHasNoKeyboard_toolTipIsShown)
{
    const QString text = QStringLiteral("What this desktop does");
    PanelWindow panel(Qt::Window | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    panel.setGeometry(100, 100, 200, 100);
    panel.setToolTip(text);
    QCursor::setPos(10, 10);
    panel.show();
    int step = 0;
    EXPECT_TRUE(runUntil([&] {
        // The pointer comes to rest there, at the latest when the window is really on the screen.
        if (!panel.underMouse())
            QCursor::setPos(150 + ++step % 2, 150);
        return QToolTip::isVisible();
    }));
    EXPECT_EQ(QToolTip::text(), text);
    EXPECT_FALSE(panel.isActiveWindow());
    QToolTip::hideText();
}

} // namespace
} // namespace sablequill
