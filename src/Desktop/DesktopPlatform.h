// SPDX-License-Identifier: MIT
#pragma once

#include "AutostartLoginItem.h"
#include "CaptureShield.h"
#include "DesktopHotKeys.h"
#include "DesktopStatusItem.h"
#include "KWinPin.h"
#include "Platform.h"
#include "PortalColorScheme.h"
#include "QtApplication.h"
#include "QtMainQueue.h"
#include "QtScreens.h"
#include "Session.h"
#include "SessionBus.h"
#include "Veils.h"
#include "X11Panel.h"
#include "XServer.h"

namespace sablequill {

/// The desktop that the program runs on: the one place that chooses between the kinds there are.
/// Needs the toolkit's application object and outlives everything that uses the platform.
class DesktopPlatform {
public:
    DesktopPlatform();

    /// Whether there is a desktop that the program can run on; needs no application object.
    static bool isAvailable();

    Platform platform();

    QtApplication application;
    DesktopStatusItem statusItem{sessionBus};
    PortalColorScheme colorScheme;

private:
    XServer server;
    const Session session = Session::of(server);
    /// In a Wayland session, if there is one.
    const std::optional<QDBusConnection> compositorBus =
        session.isWayland ? sessionBus() : std::nullopt;
    const std::unique_ptr<CaptureShield> shield = CaptureShield::forSession(session, compositorBus);
    const Veils veils{*shield};
    /// Keeps from the toolkit what is not for this program.
    XEventFilter unheard;
    std::optional<KWinPin> kwinPin;
    X11PanelFactory panels{server, *shield, session};
    QtScreens screens;
    DesktopHotKeys hotKeys{server, session.isWayland};
    AutostartLoginItem loginItem;
    QtMainQueue mainQueue;
};

} // namespace sablequill
