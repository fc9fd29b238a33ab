// SPDX-License-Identifier: MIT
#pragma once

#include "PrivateHome.h"
#include "SessionBus.h"
#include "VirtualDisplay.h"
#include "WindowManagerSetup.h"

namespace sablequill {

/// A desktop of its own: display, session bus, window manager and compositor.
class DesktopSession {
public:
    /// Returns when all of it is at work. Throws std::runtime_error when a part does not come up.
    explicit DesktopSession(WindowManagerSetup setup, ScreenSize size = {});

    /// The session of the set-up given, started when it is not the one that runs or when that one
    /// is spent.
    static DesktopSession& shared(WindowManagerSetup setup);
    static void dropShared();
    /// For tests that leave something behind, such as another keyboard layout: the next call of
    /// shared() starts a new one.
    void spend() { isSpent = true; }

    /// The session is spent by either.
    void killDisplay();
    void killBus();

    WindowManagerSetup setup() const { return managerSetup; }
    std::string displayName() const { return display.name(); }
    /// What a program of the given user is started with in this session.
    Environment environment(const PrivateHome& user) const;
    const RunningWindowManager& windowManager() const { return manager; }

private:
    WindowManagerSetup managerSetup;
    PrivateHome home;
    VirtualDisplay display;
    SessionBus bus;
    RunningWindowManager manager;
    bool isSpent = false;
};

} // namespace sablequill
