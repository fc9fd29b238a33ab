// SPDX-License-Identifier: MIT
#pragma once

#include "CompositorInput.h"
#include "PrivateHome.h"
#include "SessionBus.h"
#include "XConnection.h"

#include <QDBusConnection>

#include <memory>
#include <ostream>
#include <string>

namespace sablequill {

enum class Compositor { kwin, mutter };

std::string nameOf(Compositor compositor);
std::ostream& operator<<(std::ostream& stream, Compositor compositor);

/// A Wayland session of its own without a screen, 1280 x 800, with an X server for X clients.
class WaylandSession {
public:
    /// Returns when both kinds of clients can start. Throws std::runtime_error when a part does not
    /// come up.
    explicit WaylandSession(Compositor compositor);
    ~WaylandSession();

    Compositor kind() const { return compositor; }
    std::string displayName() const { return displays.at("DISPLAY"); }
    Environment environment(const PrivateHome& user) const;
    CompositorInput& input() { return *device; }
    /// Shows another workspace, counted from 0, of at least two.
    void switchToWorkspace(const XConnection& x, unsigned workspace);

private:
    void start();
    void readDisplays();

    const Compositor compositor;
    PrivateHome home;
    Environment displays;
    SessionBus bus;
    std::unique_ptr<ChildProcess> process;
    std::unique_ptr<QDBusConnection> connection;
    std::unique_ptr<CompositorInput> device;
};

} // namespace sablequill
