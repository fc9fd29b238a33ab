// SPDX-License-Identifier: MIT
#include "ColorSchemePortal.h"

#include <QCoreApplication>

/// portal_program SCHEME: a Settings portal that answers with that number until it is ended.
int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const sablequill::ColorSchemePortal portal(application.arguments().value(1).toUInt());
    return QCoreApplication::exec();
}
