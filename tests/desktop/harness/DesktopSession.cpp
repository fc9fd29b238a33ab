// SPDX-License-Identifier: MIT
#include "DesktopSession.h"

#include "Keyboard.h"

#include <memory>

namespace sablequill {

namespace {

std::unique_ptr<DesktopSession>& sharedSession()
{
    static std::unique_ptr<DesktopSession> session;
    return session;
}

} // namespace

DesktopSession::DesktopSession(WindowManagerSetup setup, ScreenSize size)
    : managerSetup(setup)
    , display(home, size)
    , bus(home, environment(home))
    , manager(setup, home, environment(home))
{
    // The first key press of a test device makes the server switch keyboards and tell all clients
    // of a new one; no test should see that.
    const XConnection x(display.name());
    Keyboard(x).tap(KeyCode::leftShift);
}

DesktopSession& DesktopSession::shared(WindowManagerSetup setup)
{
    auto& session = sharedSession();
    if (!session || session->isSpent || session->setup() != setup || !session->display.isRunning()
        || !session->manager.isRunning()) {
        session.reset();
        session = std::make_unique<DesktopSession>(setup);
    }
    return *session;
}

void DesktopSession::dropShared()
{
    sharedSession().reset();
}

void DesktopSession::killDisplay()
{
    spend();
    display.kill();
}

void DesktopSession::killBus()
{
    spend();
    bus.kill();
}

Environment DesktopSession::environment(const PrivateHome& user) const
{
    auto environment = user.environment();
    environment["DISPLAY"] = display.name();
    environment["XDG_SESSION_TYPE"] = "x11";
    environment["DBUS_SESSION_BUS_ADDRESS"] = SessionBus::addressIn(home);
    return environment;
}

} // namespace sablequill
