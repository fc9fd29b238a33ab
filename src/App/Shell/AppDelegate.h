// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

/// Makes the program an accessory: it has no main window, and closing its windows does not end it.
class AppDelegate {
public:
    void applicationDidFinishLaunching();
    bool applicationShouldTerminateAfterLastWindowClosed() const;
};

} // namespace sablequill
