// SPDX-License-Identifier: MIT
#include "AccessibleContainer.h"
#include "Constants.h"
#include "DesktopPlatform.h"
#include "ExitHandler.h"
#include "MirkpadApp.h"
#include "PopupStyle.h"
#include "SingleInstance.h"
#include "StorageManager.h"
#include "TextStyle.h"
#include "Toolkit.h"
#include "UnixSignals.h"

#include <QApplication>

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
    StorageManager::readNotesAhead();
    QApplication::setApplicationName(Constants::appName);
    QApplication::setDesktopFileName(Constants::bundleIdentifier);
    const std::unique_ptr<QApplication> toolkit = startToolkit(argv[0]);
    // Before the first widget, which is then polished once.
    QApplication::setStyle(new PopupStyle);
    // No view shows text in it, but text views are laid out once before they are given a font: in
    // one that the overlay needs anyway.
    QApplication::setFont(font(TextStyles::caption2));
    installAccessibleContainers();

    DesktopPlatform desktop;
    MirkpadApp app(desktop.platform(), desktop.statusItem, desktop.colorScheme);
    desktop.application.onShowSettingsWindow = [&] { app.showSettingsWindow(); };
    instance->onSecondStart(&app, [&] { app.openPopover(); });
    const UnixSignals terminating([&] { desktop.application.terminate(); });
    app.launch();
    const ExitHandler displayLost([&] { app.writeUnsaved(); });
    return QApplication::exec();
}
