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
    QCoreApplication::quit();
}

} // namespace sablequill
