// SPDX-License-Identifier: MIT
#pragma once

#include "ChildProcess.h"
#include "PrivateHome.h"

#include <memory>
#include <string>

namespace sablequill {

struct ScreenSize {
    int width = 1280;
    int height = 800;
    int depth = 24;
};

/// An X server without a screen on a display number of its own.
class VirtualDisplay {
public:
    /// Returns when a client can connect. Throws std::runtime_error when no server comes up.
    VirtualDisplay(const PrivateHome& home, ScreenSize size);
    /// Leaves nothing behind, however the server ended.
    ~VirtualDisplay();

    VirtualDisplay(const VirtualDisplay&) = delete;
    VirtualDisplay& operator=(const VirtualDisplay&) = delete;

    /// As in DISPLAY.
    std::string name() const { return displayName; }
    bool isRunning() { return server->isRunning(); }
    /// As when it crashes; returns when it is gone.
    void kill();

private:
    bool start(const PrivateHome& home, ScreenSize size, int number);

    std::string displayName;
    int displayNumber = 0;
    std::unique_ptr<ChildProcess> server;
};

} // namespace sablequill
