// SPDX-License-Identifier: MIT
#pragma once

#include "Published.h"

namespace sablequill {

/// Who holds the system-wide hot keys. Where it is the desktop, the combinations that were
/// registered are what the program has proposed, and the desktop's own settings say what they are.
class HotKeyHolder : public ObservableObject {
public:
    Published<bool> isDesktop{this, false};
};

} // namespace sablequill
