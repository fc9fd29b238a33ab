// SPDX-License-Identifier: MIT
#include "AppDelegate.h"

#include <QGuiApplication>

namespace sablequill {

void AppDelegate::applicationDidFinishLaunching()
{
    QGuiApplication::setQuitOnLastWindowClosed(applicationShouldTerminateAfterLastWindowClosed());
}

bool AppDelegate::applicationShouldTerminateAfterLastWindowClosed() const
{
    return false;
}

} // namespace sablequill
