// SPDX-License-Identifier: MIT
#include "HyprlandShield.h"
#include "HyprlandStub.h"
#include "KWinShield.h"
#include "NoShield.h"
#include "ScopedVariable.h"
#include "harness/SessionBus.h"

#include "BusConnection.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

class CaptureShieldTest : public testing::Test {
protected:
    CaptureShieldTest() { std::filesystem::create_directories(hyprland); }

    template <typename Kind> bool isChosen(bool isWayland = true) const
    {
        const auto shield = CaptureShield::forSession(isWayland, program.get());
        return dynamic_cast<Kind*>(shield.get()) != nullptr;
    }

    PrivateHome home;
    const std::filesystem::path hyprland = home.runtimeFolder() / "hypr" / "s";
    SessionBus daemon{home, home.environment()};
    BusConnection program{SessionBus::addressIn(home)};
    ScopedVariable runtime{"XDG_RUNTIME_DIR", home.runtimeFolder()};
    ScopedVariable signature{"HYPRLAND_INSTANCE_SIGNATURE"};
};

TEST_F(CaptureShieldTest, forSession_wayland_waitsForKWin)
{
    EXPECT_TRUE(isChosen<KWinShield>());
}

TEST_F(CaptureShieldTest, forSession_hyprland_isHyprlands)
{
    const ScopedVariable other("HYPRLAND_INSTANCE_SIGNATURE", QByteArray("s"));
    EXPECT_TRUE(isChosen<KWinShield>()) << "its socket is missing";
    const HyprlandStub stub(QString::fromStdString((hyprland / ".socket.sock").string()));
    EXPECT_TRUE(isChosen<HyprlandShield>());
    EXPECT_TRUE(isChosen<NoShield>(false));
}

TEST_F(CaptureShieldTest, forSession_x11_nothingCanBeHidden)
{
    const auto shield = CaptureShield::forSession(false, program.get());
    EXPECT_EQ(shield->effect.get(), MirkEffect::none);
    shield->setWanted(true);
    EXPECT_FALSE(shield->mustWait(1));
    EXPECT_EQ(shield->effect.get(), MirkEffect::none);
}

TEST_F(CaptureShieldTest, forSession_waylandWithoutBus_nothingCanBeHidden)
{
    EXPECT_EQ(CaptureShield::forSession(true, std::nullopt)->effect.get(), MirkEffect::none);
}

} // namespace
} // namespace sablequill
