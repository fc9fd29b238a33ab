// SPDX-License-Identifier: MIT
#pragma once

#include "Published.h"

namespace sablequill {

/// What captures of the screen (screenshots, recordings, screen sharing) show of the program's
/// windows while Mirk mode is on.
enum class MirkEffect {
    /// The desktop has not answered yet.
    unknown,
    /// What lies behind the windows.
    hidden,
    /// A black box of the window's size.
    blackBox,
    /// The windows: the desktop cannot hide them.
    none,
};

/// What the desktop does for Mirk mode: for all windows of the program, those that come later too.
class MirkProtection : public ObservableObject {
public:
    Published<MirkEffect> effect{this, MirkEffect::unknown};

    /// Begins to hide the windows, or lets captures show them, at once. Free when nothing changes.
    ///
    /// Said before the first window is shown, so that not even its first picture is captured. From
    /// then on the overlay's sharing type says it.
    virtual void setWanted(bool isWanted) = 0;
};

} // namespace sablequill
