// SPDX-License-Identifier: MIT
#include "PortalColorScheme.h"

#include "Appearance.h"

#include <gtest/gtest.h>

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
    PortalColorScheme scheme;
    const Appearance desktop(address);
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
    PortalColorScheme scheme;
    const Appearance desktop(address);
    desktop.prefer(Appearance::dark);
    EXPECT_TRUE(runUntil([&] { return scheme.prefersDark.get(); }));
    desktop.prefer(Appearance::light, QStringLiteral("contrast"));
    EXPECT_TRUE(runWhile([&] { return scheme.prefersDark.get(); }, Milliseconds(100)));
}

} // namespace
} // namespace sablequill
