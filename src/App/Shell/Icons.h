// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace sablequill {

/// The program's icon, for window lists.
QIcon applicationIcon();
/// The symbol in the status area: white with a dark rim, to stand out from light and dark panels.
QIcon statusIcon();

} // namespace sablequill
