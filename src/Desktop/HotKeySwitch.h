// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCenter.h"

#include <map>

namespace sablequill {

/// System-wide hot keys by one of two ways at a time, so that one press is never two: by the
/// program's own grabs, or by the desktop. All that is registered moves along.
class HotKeySwitch final : public HotKeyCenter {
public:
    /// Begins with the grabs. Both outlive this object.
    HotKeySwitch(HotKeyCenter& grabs, HotKeyCenter& desktop);

    void setDesktopHolds(bool isDesktop);

    /// In both ways.
    EventHandlerRef installEventHandler(
        HotKeyHandler handler, EventTypeSpec spec, void* userData) override;
    /// Never nothing: what the one way does not give the other one may.
    std::optional<HotKeyRef> registerHotKey(
        std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id) override;
    void unregisterHotKey(HotKeyRef hotKey) override;
    HotKeyHolder& holder() override { return currentHolder; }

private:
    struct HotKey {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        HotKeyID id;
        /// What the current way has given.
        std::optional<HotKeyRef> held;
    };

    void take(HotKey& hotKey);
    void release(HotKey& hotKey);

    HotKeyHolder currentHolder;
    HotKeyCenter& grabs;
    HotKeyCenter& desktop;
    HotKeyCenter* current;
    std::map<HotKeyRef, HotKey> hotKeys;
    std::uint64_t lastRef = 0;
};

} // namespace sablequill
