// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace sablequill {

class XServer;

/// The kind of session that the process is in.
struct Session {
    /// Whether the X server is one that shows its windows in a Wayland session.
    bool isWayland = false;
    /// The request socket of the Hyprland that runs this Wayland session; none in any other.
    std::optional<QString> hyprlandSocket = {};

    static Session of(const XServer& server);
};

} // namespace sablequill
