// SPDX-License-Identifier: MIT
#pragma once

#include "AppDelegate.h"
#include "AppState.h"

namespace sablequill {

/// The application: holds the one application state for the life of the process, and its scenes.
class MirkpadApp {
public:
    /// What the platform refers to outlives the application.
    explicit MirkpadApp(const Platform& platform);

    /// Begins the run; the toolkit's event loop is started by the caller afterwards.
    void launch();

private:
    AppDelegate delegate;
    AppState appState;
};

} // namespace sablequill
