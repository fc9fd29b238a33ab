// SPDX-License-Identifier: MIT
#pragma once

#include "PrivateHome.h"
#include "XConnection.h"

#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace sablequill {

/// What manages the windows of a session, and what composes them.
enum class WindowManagerSetup {
    none,
    openbox,
    openboxPicom,
    i3,
    xfwm4,
    metacity,
    marco,
    mutter,
    kwin,
};

struct WindowManagerTraits {
    /// Letters and digits only: part of the tests' names.
    const char* name;
    bool isManaged = true;
    /// Whether the opacity of a window is blended.
    bool isComposited = false;
};

const WindowManagerTraits& traits(WindowManagerSetup setup);
std::ostream& operator<<(std::ostream& stream, WindowManagerSetup setup);

/// The set-ups that every run of the tests goes through.
const std::vector<WindowManagerSetup>& everydaySetups();
/// Those that take more of a machine; a person runs them.
const std::vector<WindowManagerSetup>& furtherSetups();

/// The processes of one set-up.
class RunningWindowManager {
public:
    /// Returns when the window manager manages and the compositor composes. Throws
    /// std::runtime_error when they do not come up.
    RunningWindowManager(
        WindowManagerSetup setup, const PrivateHome& home, const Environment& environment);

    bool isRunning() const;
    /// Shows another workspace, counted from 0. Throws std::runtime_error when it does not come.
    void switchToWorkspace(unsigned workspace) const;

private:
    void start(const std::vector<std::string>& command);
    void startSettingsService();

    WindowManagerSetup setup;
    const PrivateHome& home;
    Environment environment;
    /// Kept: the server would give the numbers of a window on trial to the windows of the next
    /// client, while a manager may still have requests for that one before it.
    const XConnection x;
    std::vector<std::unique_ptr<ChildProcess>> processes;
};

} // namespace sablequill
