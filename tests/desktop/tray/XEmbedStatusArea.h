// SPDX-License-Identifier: MIT
#pragma once

#include "harness/ChildProcess.h"
#include "harness/PrivateHome.h"
#include "harness/XConnection.h"

namespace sablequill {

/// A status area of the older kind at the top right of the screen: a program that does nothing
/// else.
class XEmbedStatusArea {
public:
    /// Is there when it returns; the connection and the home outlive it. Throws std::runtime_error
    /// when it does not come up.
    XEmbedStatusArea(
        const XConnection& connection, const std::string& displayName, const PrivateHome& home);
    XEmbedStatusArea(const XEmbedStatusArea&) = delete;
    XEmbedStatusArea& operator=(const XEmbedStatusArea&) = delete;
    /// Kills it, and returns when the display has noticed.
    ~XEmbedStatusArea();

private:
    bool isThere() const;

    const XConnection& x;
    std::unique_ptr<ChildProcess> program;
};

} // namespace sablequill
