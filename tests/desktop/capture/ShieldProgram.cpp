// SPDX-License-Identifier: MIT
#include "KWinShield.h"

#include <QCoreApplication>

/// A program in Mirk mode, for those who want to see one end.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    sablequill::KWinShield shield(QDBusConnection::sessionBus());
    shield.setWanted(true);
    return QCoreApplication::exec();
}
