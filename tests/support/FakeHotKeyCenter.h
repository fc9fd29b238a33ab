// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCenter.h"
#include "Journal.h"

#include <map>
#include <set>
#include <vector>

namespace sablequill {

/// Hot keys in memory. A combination in `ownedElsewhere` cannot be registered.
class FakeHotKeyCenter final : public HotKeyCenter {
public:
    struct Combination {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;

        auto operator<=>(const Combination&) const = default;
    };

    explicit FakeHotKeyCenter(Journal& journal)
        : journal(journal)
    {
    }

    EventHandlerRef installEventHandler(
        HotKeyHandler handler, EventTypeSpec spec, void* userData) override;
    std::optional<HotKeyRef> registerHotKey(
        std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id) override;
    void unregisterHotKey(HotKeyRef hotKey) override;
    HotKeyHolder& holder() override { return currentHolder; }

    /// A key press in some application; not handled when no hot key has the combination.
    std::int32_t press(Combination combination);
    /// Hands an event to the dispatchers, newest first.
    std::int32_t deliver(const HotKeyEvent& event);

    struct Dispatcher {
        HotKeyHandler handler;
        EventTypeSpec spec;
        void* userData;
    };

    struct HotKey {
        Combination combination;
        HotKeyID id;
    };

    HotKeyHolder currentHolder;
    std::set<Combination> ownedElsewhere;
    std::vector<Dispatcher> dispatchers;
    std::map<HotKeyRef, HotKey> hotKeys;

private:
    Journal& journal;
    std::uint64_t refCount = 0;
};

} // namespace sablequill
