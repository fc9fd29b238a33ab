// SPDX-License-Identifier: MIT
#include "Constants.h"
#include "DesktopPlatform.h"
#include "MirkpadApp.h"
#include "SingleInstance.h"
#include "UnixSignals.h"

#include <QApplication>

#include <array>
#include <cstdio>
#include <memory>

int main(int, char* argv[])
{
    using namespace sablequill;

    if (!DesktopPlatform::isAvailable()) {
        std::fputs("Sablequill needs an X server, or a Wayland session with XWayland.\n", stderr);
        return 1;
    }
    // A second start shows the running program's popover, which that one does by itself.
    const std::unique_ptr<SingleInstance> instance = SingleInstance::claim();
    if (!instance)
        return 0;
    // The panel needs an X server also where the toolkit would choose another platform, and a
    // desktop's theme plug-in would load a second toolkit.
    std::array arguments = {argv[0], const_cast<char*>("-platform"), const_cast<char*>("xcb"),
        const_cast<char*>("-platformtheme"), const_cast<char*>("generic")};
    int argumentCount = static_cast<int>(arguments.size());
    QApplication::setApplicationName(Constants::appName);
    QApplication::setDesktopFileName(Constants::bundleIdentifier);
    QApplication toolkit(argumentCount, arguments.data());

    DesktopPlatform desktop;
    MirkpadApp app(desktop.platform(), desktop.statusItem, desktop.colorScheme);
    desktop.application.onShowSettingsWindow = [&] { app.showSettingsWindow(); };
    instance->onSecondStart(&app, [&] { app.openPopover(); });
    const UnixSignals terminating([&] { desktop.application.terminate(); });
    app.launch();
    return QApplication::exec();
}
