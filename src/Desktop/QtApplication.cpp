// SPDX-License-Identifier: MIT
#include "QtApplication.h"

#include <QCoreApplication>

namespace sablequill {

void QtApplication::activateIgnoringOtherApps(bool)
{
    // X knows windows, not applications: making a window key is all there is to activate.
}

void QtApplication::showSettingsWindow()
{
    if (onShowSettingsWindow)
        onShowSettingsWindow();
}

void QtApplication::terminate()
{
    // quit() would close the windows behind their owners' backs.
    QCoreApplication::exit();
}

} // namespace sablequill
