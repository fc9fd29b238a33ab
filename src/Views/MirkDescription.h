// SPDX-License-Identifier: MIT
#pragma once

#include "MirkProtection.h"

#include <QString>

namespace sablequill {

/// What a user is told of Mirk mode on this desktop, in full sentences that hold whether the mode
/// is on or off.
QString mirkDescription(MirkEffect effect);

} // namespace sablequill
