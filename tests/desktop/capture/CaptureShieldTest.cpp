// SPDX-License-Identifier: MIT
#include "HyprlandShield.h"
#include "KWinShield.h"
#include "NoShield.h"
#include "Session.h"
#include "harness/SessionBus.h"

#include "BusConnection.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class CaptureShieldTest : public testing::Test {
protected:
    template <typename Kind> bool isChosen(const Session& session) const
    {
        const auto shield = CaptureShield::forSession(session, program.get());
        return dynamic_cast<Kind*>(shield.get()) != nullptr;
    }

    PrivateHome home;
    SessionBus daemon{home, home.environment()};
    BusConnection program{SessionBus::addressIn(home)};
};

TEST_F(CaptureShieldTest, forSession_wayland_waitsForKWin)
{
    EXPECT_TRUE(isChosen<KWinShield>({.isWayland = true}));
}

TEST_F(CaptureShieldTest, forSession_hyprland_isHyprlands)
{
    EXPECT_TRUE(
        isChosen<HyprlandShield>({.isWayland = true, .hyprlandSocket = QStringLiteral("/h.sock")}));
}

TEST_F(CaptureShieldTest, forSession_x11_nothingCanBeHidden)
{
    const auto shield = CaptureShield::forSession(Session{}, program.get());
    EXPECT_FALSE(shield->canHide());
    EXPECT_EQ(shield->effect.get(), MirkEffect::none);
    shield->setWanted(true);
    EXPECT_FALSE(shield->mustWait(1));
    EXPECT_EQ(shield->effect.get(), MirkEffect::none);
}

TEST_F(CaptureShieldTest, forSession_waylandWithoutBus_nothingCanBeHidden)
{
    const auto shield = CaptureShield::forSession({.isWayland = true}, std::nullopt);
    EXPECT_FALSE(shield->canHide());
    EXPECT_EQ(shield->effect.get(), MirkEffect::none);
}

} // namespace
} // namespace sablequill
