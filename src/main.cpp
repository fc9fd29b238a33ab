// SPDX-License-Identifier: MIT
#include "Constants.h"
#include "DesktopPlatform.h"
#include "MirkpadApp.h"
#include "UnixSignals.h"

#include <QApplication>

#include <array>
#include <cstdio>

int main(int, char* argv[])
{
    using namespace sablequill;

    if (!DesktopPlatform::isAvailable()) {
        std::fputs("Sablequill needs an X server, or a Wayland session with XWayland.\n", stderr);
        return 1;
    }
    // The panel needs an X server also where the toolkit would choose another platform, and a
    // desktop's theme plug-in would load a second toolkit.
    std::array arguments = {argv[0], const_cast<char*>("-platform"), const_cast<char*>("xcb"),
        const_cast<char*>("-platformtheme"), const_cast<char*>("generic")};
    int argumentCount = static_cast<int>(arguments.size());
    QApplication::setApplicationName(Constants::appName);
    QApplication::setDesktopFileName(Constants::bundleIdentifier);
    QApplication toolkit(argumentCount, arguments.data());

    DesktopPlatform desktop;
    MirkpadApp app(desktop.platform());
    const UnixSignals terminating([&] { desktop.application.terminate(); });
    app.launch();
    return QApplication::exec();
}
