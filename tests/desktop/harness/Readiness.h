// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

namespace sablequill {

/// Whether a window manager says that it is there; what one that was killed has left says nothing.
bool isManagerAnnounced(const XConnection& x);

/// Waits until a window manager takes windows on; false when that does not happen.
bool waitUntilManaged(const XConnection& x);

/// Waits until the server maps windows by itself; until it has noticed that a window manager was
/// killed, it hands the requests to that one. False when that does not happen.
bool waitUntilUnmanaged(const XConnection& x);

/// Waits until a compositor blends windows; false when that does not happen.
bool waitUntilComposed(const XConnection& x);

} // namespace sablequill
