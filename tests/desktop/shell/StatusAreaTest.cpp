// SPDX-License-Identifier: MIT
#include "ShellTest.h"

#include <QDBusVariant>

namespace sablequill {
namespace {

/// The program with each kind of status area, and without one.
class StatusAreaTest : public ShellTest {
protected:
    void SetUp() override
    {
        ShellTest::SetUp();
        becomeExperienced();
    }

    bool isRegistered() const
    {
        return runUntil([this] { return host->items().size() == 1; });
    }

    void activate(int x, int y) const
    {
        const QDBusMessage answer =
            host->press(host->items().back(), QStringLiteral("Activate"), x, y);
        EXPECT_EQ(answer.type(), QDBusMessage::ReplyMessage) << answer.errorMessage().toStdString();
    }

    /// Has the host activate the item, and waits for the popover there.
    void expectOpensAt(Point place)
    {
        activate(place.x, place.y);
        expectPopoverOpens();
        EXPECT_TRUE(runUntil([&] {
            return isPopoverBelow({place.x, place.y, 0, 0});
        })) << popover.card()
            << " for " << place;
    }

    /// Chooses an entry of the item's menu, counted from 1.
    void chooseFromMenu(int entry) const
    {
        const QVariant nothing = QVariant::fromValue(QDBusVariant(QString()));
        host->callMenu(host->items().back(), QStringLiteral("Event"),
            {entry, QStringLiteral("clicked"), nothing, 0U});
    }

    bool isInTopRightCorner() const
    {
        const Area card = popover.card();
        return x.screenArea().width - card.right() <= 6 && card.y <= 6;
    }
};

TEST_F(StatusAreaTest, start_host_registersThereAndNowhereElse)
{
    startStatusArea();
    startHost();
    program = std::make_unique<ProgramUnderTest>(
        std::vector<std::string>{SABLEQUILL_BINARY}, session, user);
    ASSERT_TRUE(isRegistered());
    EXPECT_TRUE(runUntil([this] { return popover.isShown(); }));
    EXPECT_TRUE(runWhile([this] { return !icon() && host->items().size() == 1; }, watchTime));
    EXPECT_EQ(host->itemProperty(host->items()[0], QStringLiteral("Title")).toString(),
        QStringLiteral("Sablequill"));
}

TEST_F(StatusAreaTest, activate_atAPlace_opensThePopoverThere)
{
    startHost();
    startProgram();
    ASSERT_TRUE(isRegistered());
    leavePopover();
    expectOpensAt({700, 20});
    leavePopover();
    expectOpensAt({1279, 1});
}

TEST_F(StatusAreaTest, activate_atTheBottom_opensThePopoverAbove)
{
    startHost();
    startProgram();
    ASSERT_TRUE(isRegistered());
    leavePopover();
    activate(0, 799);
    ASSERT_TRUE(runUntil([this] { return popover.isShown(); }));
    EXPECT_EQ(popover.card().x, 0);
    EXPECT_TRUE(runUntil([this] { return std::abs(popover.card().bottom() - 793) <= 1; }))
        << popover.card();
}

TEST_F(StatusAreaTest, activate_open_closes)
{
    startHost();
    startProgram();
    ASSERT_TRUE(isRegistered());
    activate(700, 20);
    EXPECT_TRUE(runUntil([this] { return !popover.isShown(); }));
}

TEST_F(StatusAreaTest, host_comesLater_takesTheIcon)
{
    startStatusArea();
    startProgram();
    startHost();
    ASSERT_TRUE(isRegistered());
    EXPECT_TRUE(runUntil([this] { return !icon(); }));
    leavePopover();
    expectOpensAt({600, 10});
}

TEST_F(StatusAreaTest, host_restarts_getsTheItemAgain)
{
    startStatusArea();
    startHost();
    program = std::make_unique<ProgramUnderTest>(
        std::vector<std::string>{SABLEQUILL_BINARY}, session, user);
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(isRegistered());
        host.reset();
        ASSERT_TRUE(isIconShown());
        startHost();
        ASSERT_TRUE(runUntil([this] { return !icon(); }));
    }
    ASSERT_TRUE(isRegistered());
    leavePopover();
    expectOpensAt({500, 10});
}

TEST_F(StatusAreaTest, host_goes_iconIsInTheOtherArea)
{
    startStatusArea();
    startHost();
    program = std::make_unique<ProgramUnderTest>(
        std::vector<std::string>{SABLEQUILL_BINARY}, session, user);
    ASSERT_TRUE(isRegistered());
    host.reset();
    ASSERT_TRUE(isIconShown());
    ASSERT_TRUE(runUntil([this] { return popover.isShown(); }));
    leavePopover();
    mouse.click(icon()->center());
    expectPopoverOpens();
    EXPECT_TRUE(isPopoverBelow(*icon()));
}

TEST_F(StatusAreaTest, area_comesLaterAndRestarts_showsTheIcon)
{
    startProgram();
    for (int round = 0; round < 3; ++round) {
        startStatusArea();
        ASSERT_TRUE(isIconShown());
        statusArea.reset();
        ASSERT_TRUE(runUntil([this] { return !icon(); }));
    }
    startStatusArea();
    ASSERT_TRUE(isIconShown());
    leavePopover();
    mouse.click(icon()->center());
    expectPopoverOpens();
    EXPECT_TRUE(isPopoverBelow(*icon()));
}

TEST_F(StatusAreaTest, start_noArea_popoverIsInTheCorner)
{
    startProgram();
    EXPECT_TRUE(isInTopRightCorner()) << popover.card();
    dismissPopover();
    openPopover();
    EXPECT_TRUE(isInTopRightCorner()) << popover.card();
}

TEST_F(StatusAreaTest, menu_toggleAndQuit_actLikeThePopover)
{
    startHost();
    startProgram();
    ASSERT_TRUE(isRegistered());
    chooseFromMenu(2);
    ASSERT_TRUE(runUntil([this] { return !overlay.isShown(); }));
    chooseFromMenu(5);
    expectEnded();
}

} // namespace
} // namespace sablequill
