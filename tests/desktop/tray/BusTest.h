// SPDX-License-Identifier: MIT
#pragma once

#include "BusConnection.h"
#include "StatusNotifierHost.h"

#include <gtest/gtest.h>

namespace sablequill {

/// A session bus for each test, with the program's connection to it.
class BusTest : public testing::Test {
protected:
    /// As the one item of a host that is waited for; fails the test when none comes.
    static StatusNotifierHost::Item itemOf(const StatusNotifierHost& host)
    {
        EXPECT_TRUE(runUntil([&] { return !host.items().empty(); })) << "no item was registered";
        return host.items().empty() ? StatusNotifierHost::Item{} : host.items().back();
    }

    PrivateHome home;
    std::optional<SessionBus> daemon{std::in_place, home, home.environment()};
    const std::string address = SessionBus::addressIn(home);
    BusConnection program{address};
};

} // namespace sablequill
