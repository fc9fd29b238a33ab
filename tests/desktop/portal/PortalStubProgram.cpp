// SPDX-License-Identifier: MIT
#include "PortalStub.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <iostream>
#include <string>

#include <unistd.h>

namespace {

using namespace sablequill;

/// "activate <action id>" presses the keys of that action.
void obey(PortalStub& portal, const QString& line)
{
    const QString id = line.section(u' ', 1);
    const bool isDone = line.section(u' ', 0, 0) == u"activate" && portal.press(id);
    std::cout << (isDone ? "activated " : "no keys: ") << id.toStdString() << std::endl;
}

/// Prints what was asked since the last time.
void report(PortalStub& portal)
{
    for (const QString& call : portal.calls())
        std::cout << call.toStdString() << std::endl;
    portal.forgetCalls();
}

} // namespace

/// A portal on the session bus of its environment, for sessions that have none of their own. Obeys
/// the lines on its standard input and prints each call that it gets. Ends by a signal.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    PortalStub portal(qgetenv("DBUS_SESSION_BUS_ADDRESS").toStdString());
    portal.onCall = [&] { report(portal); };

    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QByteArray pending;
    QObject::connect(&input, &QSocketNotifier::activated, &application, [&] {
        char bytes[256];
        const auto count = read(STDIN_FILENO, bytes, sizeof bytes);
        // Whoever gave the orders may leave before the portal.
        if (count <= 0)
            input.setEnabled(false);
        else
            pending.append(bytes, count);
        for (auto end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n')) {
            obey(portal, QString::fromUtf8(pending.left(end)));
            pending.remove(0, end + 1);
        }
    });
    return QCoreApplication::exec();
}
