// SPDX-License-Identifier: MIT
#include "CaptureShield.h"
#include "Journal.h"
#include "Session.h"
#include "Veil.h"
#include "Veils.h"
#include "X11Panel.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

/// A compositor that never gets to hiding a window.
class SlowShield final : public CaptureShield {
public:
    void setWanted(bool isWanted) override { journal.record("setWanted", isWanted); }
    bool mustWait(WId) const override { return isWaiting; }

    Journal journal;
    bool isWaiting = false;
};

class PanelSharingTest : public testing::Test {
protected:
    static Veil* veil()
    {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (auto* found = window->findChild<Veil*>())
                return found;
        return nullptr;
    }

    XServer server;
    SlowShield shield;
    const Veils veils{shield};
    X11PanelFactory panels{server, shield, Session{}};
    std::unique_ptr<Panel> panel = panels.makePanel({.contentRect = {100, 100, 200, 100}});
};

TEST_F(PanelSharingTest, setSharingType_each_isWhatTheShieldIsTold)
{
    EXPECT_TRUE(shield.journal.take().empty());
    panel->setSharingType(SharingType::none);
    panel->setSharingType(SharingType::readOnly);
    EXPECT_EQ(
        shield.journal.take(), (std::vector<std::string>{"setWanted(true)", "setWanted(false)"}));
}

TEST_F(PanelSharingTest, orderFront_mustWait_isVeiledAndVisibleToTheProgram)
{
    shield.isWaiting = true;
    panel->orderFrontRegardless();
    EXPECT_TRUE(panel->isVisible());
    ASSERT_TRUE(veil());
    EXPECT_TRUE(veil()->isVisible());
    shield.isWaiting = false;
    Q_EMIT shield.waitingChanged();
    EXPECT_FALSE(veil()->isVisible());
}

TEST_F(PanelSharingTest, orderFront_nothingToWaitFor_isNotVeiled)
{
    panel->orderFrontRegardless();
    EXPECT_FALSE(veil());
}

TEST_F(PanelSharingTest, show_eachOtherKindOfWindow_isVeiledUntilItNeedNotBe)
{
    for (const Qt::WindowType type : {Qt::Window, Qt::Dialog, Qt::Popup, Qt::Tool, Qt::ToolTip}) {
        shield.isWaiting = true;
        QWidget window(nullptr, type);
        window.show();
        const auto* veil = window.findChild<Veil*>();
        ASSERT_TRUE(veil) << type;
        EXPECT_TRUE(veil->isVisible()) << type;
        shield.isWaiting = false;
        Q_EMIT shield.waitingChanged();
        EXPECT_FALSE(veil->isVisible()) << type;
    }
}

} // namespace
} // namespace sablequill
