// SPDX-License-Identifier: MIT
#include "FakeHotKeyCenter.h"

#include <algorithm>

namespace sablequill {

EventHandlerRef FakeHotKeyCenter::installEventHandler(
    HotKeyHandler handler, EventTypeSpec spec, void* userData)
{
    journal.record("hotKeys.installEventHandler", spec.eventClass, spec.eventKind);
    dispatchers.push_back({handler, spec, userData});
    return EventHandlerRef{dispatchers.size()};
}

std::optional<HotKeyRef> FakeHotKeyCenter::registerHotKey(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id)
{
    journal.record("hotKeys.registerHotKey", keyCode, modifiers, id.signature, id.id);
    if (ownedElsewhere.contains({keyCode, modifiers}))
        return std::nullopt;
    const HotKeyRef ref{++refCount};
    hotKeys[ref] = {{keyCode, modifiers}, id};
    return ref;
}

void FakeHotKeyCenter::unregisterHotKey(HotKeyRef hotKey)
{
    journal.record("hotKeys.unregisterHotKey", static_cast<std::uint64_t>(hotKey));
    hotKeys.erase(hotKey);
}

std::int32_t FakeHotKeyCenter::press(Combination combination)
{
    const auto hotKey = std::ranges::find_if(
        hotKeys, [&](const auto& entry) { return entry.second.combination == combination; });
    return hotKey == hotKeys.end() ? HotKeyStatus::eventNotHandled : deliver({hotKey->second.id});
}

std::int32_t FakeHotKeyCenter::deliver(const HotKeyEvent& event)
{
    for (auto dispatcher = dispatchers.rbegin(); dispatcher != dispatchers.rend(); ++dispatcher) {
        const std::int32_t status = dispatcher->handler(event, dispatcher->userData);
        if (status != HotKeyStatus::eventNotHandled)
            return status;
    }
    return HotKeyStatus::eventNotHandled;
}

} // namespace sablequill
