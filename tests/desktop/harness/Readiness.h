// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

namespace sablequill {

/// Waits until a window manager takes windows on; false when that does not happen.
bool waitUntilManaged(const XConnection& x);

/// Waits until a compositor blends windows; false when that does not happen.
bool waitUntilComposed(const XConnection& x);

} // namespace sablequill
