// SPDX-License-Identifier: MIT
#include "PortalTrigger.h"

#include "KeyPositions.h"

#include <gtest/gtest.h>
#include <set>

namespace sablequill {
namespace {

struct Row {
    std::uint32_t keyCode;
    std::uint32_t modifiers;
    const char* trigger;
};

class PortalTriggerTest : public testing::TestWithParam<Row> { };

TEST_P(PortalTriggerTest, portalTrigger_ofAKey_isModifiersAndKeysym)
{
    const auto& [keyCode, modifiers, trigger] = GetParam();
    EXPECT_EQ(portalTrigger(keyCode, modifiers).toStdString(), trigger);
}

INSTANTIATE_TEST_SUITE_P(Defaults, PortalTriggerTest,
    testing::Values(Row{5, 768, "LOGO+SHIFT+g"}, Row{31, 768, "LOGO+SHIFT+o"},
        Row{125, 768, "LOGO+SHIFT+Down"}, Row{126, 768, "LOGO+SHIFT+Up"}));

INSTANTIATE_TEST_SUITE_P(Modifiers, PortalTriggerTest,
    testing::Values(Row{0, 0, "a"}, Row{0, 256, "LOGO+a"}, Row{0, 512, "SHIFT+a"},
        Row{0, 2048, "ALT+a"}, Row{0, 4096, "CTRL+a"},
        Row{0, 256 | 512 | 2048 | 4096, "CTRL+ALT+LOGO+SHIFT+a"},
        // Not of the four that a binding has.
        Row{0, 1024, "a"}));

INSTANTIATE_TEST_SUITE_P(Keys, PortalTriggerTest,
    testing::Values(Row{0x1D, 256, "LOGO+0"}, Row{0x17, 256, "LOGO+5"}, Row{0x16, 256, "LOGO+6"},
        Row{0x20, 256, "LOGO+u"}, Row{0x24, 256, "LOGO+Return"}, Row{0x31, 256, "LOGO+space"},
        Row{0x33, 256, "LOGO+BackSpace"}, Row{0x35, 256, "LOGO+Escape"},
        Row{0x32, 256, "LOGO+grave"}, Row{0x2C, 256, "LOGO+slash"}, Row{0x60, 256, "LOGO+F5"},
        Row{0x5A, 256, "LOGO+F20"}, Row{0x52, 256, "LOGO+KP_0"}, Row{0x45, 256, "LOGO+KP_Add"},
        Row{0x72, 256, "LOGO+Insert"}, Row{0x75, 256, "LOGO+Delete"},
        Row{0x79, 256, "LOGO+Page_Down"}, Row{0x7B, 256, "LOGO+Left"}));

/// Modifiers as keys, keys of other keyboards than ANSI ones, and codes that no key has.
INSTANTIATE_TEST_SUITE_P(Nameless, PortalTriggerTest,
    testing::Values(Row{0x37, 768, ""}, Row{0x39, 768, ""}, Row{0x0A, 768, ""}, Row{0x5D, 768, ""},
        Row{0x34, 768, ""}, Row{128, 768, ""}, Row{4294967295, 768, ""}));

TEST(PortalTriggers, allKeyCodes_withAName_haveAPlaceAndNoTwoTheSame)
{
    std::set<QString> names;
    for (std::uint32_t keyCode = 0; keyCode < 256; ++keyCode) {
        const QString name = portalTrigger(keyCode, 0);
        if (name.isEmpty())
            continue;
        EXPECT_TRUE(serverKeyCode(keyCode)) << keyCode;
        EXPECT_TRUE(names.insert(name).second) << name.toStdString();
    }
    EXPECT_EQ(names.size(), 103U);
}

} // namespace
} // namespace sablequill
