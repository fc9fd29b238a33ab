// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

namespace sablequill {

/// Whether the X server is one that shows its windows in a Wayland session.
bool isWaylandSession(const XServer& server);

} // namespace sablequill
