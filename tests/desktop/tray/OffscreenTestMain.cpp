// SPDX-License-Identifier: MIT
#include "FailOnWarning.h"
#include "harness/PrivateHome.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char* argv[])
{
    testing::InitGoogleTest(&argc, argv);
    sablequill::failOnWarnings();
    const sablequill::PrivateHome home;
    for (const auto& [name, value] : home.environment())
        qputenv(name.c_str(), QByteArray::fromStdString(value));
    // Each test has a bus of its own; the one of whoever runs the tests is left alone.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
