// SPDX-License-Identifier: MIT
#include "FailOnWarning.h"
#include "harness/SessionBus.h"
#include "harness/VirtualDisplay.h"

#include <QApplication>

#include <gtest/gtest.h>

namespace {

/// A display and a session bus for this process, as a user's session has them.
int runOnOwnDesktop(int argc, char* argv[])
{
    using namespace sablequill;
    const PrivateHome home;
    const VirtualDisplay display(home, {});
    const SessionBus bus(home, home.environment());
    auto environment = home.environment();
    environment["DISPLAY"] = display.name();
    environment["DBUS_SESSION_BUS_ADDRESS"] = SessionBus::addressIn(home);
    environment["QT_QPA_PLATFORM"] = "xcb";
    for (const auto& [name, value] : environment)
        qputenv(name.c_str(), QByteArray::fromStdString(value));
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

} // namespace

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    sablequill::failOnWarnings();
    return GTEST_FLAG_GET(list_tests) ? RUN_ALL_TESTS() : runOnOwnDesktop(argc, argv);
}
