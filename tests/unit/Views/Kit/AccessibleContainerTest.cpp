// SPDX-License-Identifier: MIT
#include "AccessibleContainer.h"

#include "Accessibility.h"
#include "Layout.h"
#include "PushButton.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class AccessibleContainerTest : public testing::Test {
protected:
    AccessibleContainerTest() { installAccessibleContainers(); }
};

TEST_F(AccessibleContainerTest, role_windowOfItsOwn_isWindow)
{
    QWidget window;
    window.setWindowTitle(QStringLiteral("Title"));
    EXPECT_EQ(accessible(window).role(), QAccessible::Window);
    EXPECT_EQ(accessibleName(window), u"Title");
}

TEST_F(AccessibleContainerTest, role_partThatTakesTheKeyboard_isGroup)
{
    QWidget window;
    QWidget part(&window);
    EXPECT_EQ(accessible(part).role(), QAccessible::Client);
    part.setFocusPolicy(Qt::ClickFocus);
    EXPECT_EQ(accessible(part).role(), QAccessible::Grouping);
}

TEST_F(AccessibleContainerTest, role_windowBecomesPart_followsIt)
{
    QWidget window;
    auto* part = new QWidget;
    EXPECT_EQ(accessible(*part).role(), QAccessible::Window);
    part->setParent(&window);
    EXPECT_EQ(accessible(*part).role(), QAccessible::Client);
}

TEST_F(AccessibleContainerTest, role_controls_stayWhatTheyAre)
{
    PushButton button(QStringLiteral("Press"), PushButton::Style::bordered,
        PushButton::ControlSize::regular, [] {});
    EXPECT_EQ(accessible(button).role(), QAccessible::Button);
}

} // namespace
} // namespace sablequill
