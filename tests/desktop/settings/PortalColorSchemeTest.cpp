// SPDX-License-Identifier: MIT
#include "PortalColorScheme.h"

#include "Appearance.h"

#include <gtest/gtest.h>

#include <memory>

namespace sablequill {
namespace {

/// One in each process: the toolkit connects to the session bus once.
class PortalColorSchemeTest : public testing::Test {
protected:
    PortalColorSchemeTest()
    {
        qputenv("DBUS_SESSION_BUS_ADDRESS", QByteArray::fromStdString(address));
    }

    PrivateHome home;
    SessionBus daemon{home, home.environment()};
    const std::string address = SessionBus::addressIn(home);
};

TEST_F(PortalColorSchemeTest, prefersDark_portalChangesItsMind_follows)
{
    Appearance desktop(address);
    PortalColorScheme scheme;
    scheme.start();
    EXPECT_FALSE(scheme.prefersDark.get());
    for (const auto wanted : {Appearance::dark, Appearance::light, Appearance::dark}) {
        desktop.prefer(wanted);
        EXPECT_TRUE(runUntil([&] {
            return scheme.prefersDark.get() == (wanted == Appearance::dark);
        })) << wanted;
    }
}

TEST_F(PortalColorSchemeTest, prefersDark_anotherSettingChanges_stays)
{
    Appearance desktop(address, Appearance::dark);
    PortalColorScheme scheme;
    scheme.start();
    EXPECT_TRUE(runUntil([&] { return scheme.prefersDark.get(); }));
    desktop.changeContrast();
    EXPECT_TRUE(runWhile([&] { return scheme.prefersDark.get(); }, Milliseconds(100)));
}

TEST_F(PortalColorSchemeTest, prefersDark_portalComesLater_asksIt)
{
    PortalColorScheme scheme;
    scheme.start();
    EXPECT_TRUE(runWhile([&] { return !scheme.prefersDark.get(); }, Milliseconds(100)));
    const Appearance desktop(address, Appearance::dark);
    EXPECT_TRUE(runUntil([&] { return scheme.prefersDark.get(); }));
}

TEST_F(PortalColorSchemeTest, prefersDark_portalRestartsWithAnotherAnswer_follows)
{
    auto desktop = std::make_unique<Appearance>(address, Appearance::dark);
    PortalColorScheme scheme;
    scheme.start();
    EXPECT_TRUE(runUntil([&] { return scheme.prefersDark.get(); }));
    desktop.reset();
    desktop = std::make_unique<Appearance>(address, Appearance::light);
    EXPECT_TRUE(runUntil([&] { return !scheme.prefersDark.get(); }));
}

TEST_F(PortalColorSchemeTest, prefersDark_changesAsThePortalComes_follows)
{
    PortalColorScheme scheme;
    scheme.start();
    Appearance desktop(address);
    desktop.prefer(Appearance::dark);
    EXPECT_TRUE(runUntil([&] { return scheme.prefersDark.get(); }));
}

} // namespace
} // namespace sablequill
