// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

/// The running program as its desktop sees it.
class Application {
public:
    virtual void activateIgnoringOtherApps(bool ignoresOthers) = 0;
    /// Opens the Settings window or brings it forward.
    virtual void showSettingsWindow() = 0;
    virtual void terminate() = 0;

protected:
    ~Application() = default;
};

} // namespace sablequill
