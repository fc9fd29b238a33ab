// SPDX-License-Identifier: MIT
#include "StatusNotifierHost.h"

#include <QCoreApplication>

/// A StatusNotifier watcher without a host, on the session bus of its environment: some desktops
/// have one running although their panel shows no such items.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const auto address = qgetenv("DBUS_SESSION_BUS_ADDRESS").toStdString();
    const sablequill::StatusNotifierHost watcher(address, false);
    return QCoreApplication::exec();
}
