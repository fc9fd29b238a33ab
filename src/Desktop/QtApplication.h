// SPDX-License-Identifier: MIT
#pragma once

#include "Application.h"

#include <functional>

namespace sablequill {

/// The running program on an X server, where a window takes the keyboard without its program being
/// active.
class QtApplication final : public Application {
public:
    void activateIgnoringOtherApps(bool ignoresOthers) override;
    void showSettingsWindow() override;
    void terminate() override;

    /// Set by whoever owns the Settings window.
    std::function<void()> onShowSettingsWindow;
};

} // namespace sablequill
