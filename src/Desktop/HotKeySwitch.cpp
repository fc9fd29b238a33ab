// SPDX-License-Identifier: MIT
#include "HotKeySwitch.h"

#include <utility>

namespace sablequill {

HotKeySwitch::HotKeySwitch(HotKeyCenter& grabs, HotKeyCenter& desktop)
    : grabs(grabs)
    , desktop(desktop)
    , current(&grabs)
{
}

void HotKeySwitch::setDesktopHolds(bool isDesktop)
{
    HotKeyCenter& next = isDesktop ? desktop : grabs;
    if (&next == current)
        return;
    // None is held in both ways for a moment.
    for (auto& [ref, hotKey] : hotKeys)
        release(hotKey);
    current = &next;
    for (auto& [ref, hotKey] : hotKeys)
        take(hotKey);
    currentHolder.isDesktop = isDesktop;
}

EventHandlerRef HotKeySwitch::installEventHandler(
    HotKeyHandler handler, EventTypeSpec spec, void* userData)
{
    desktop.installEventHandler(handler, spec, userData);
    return grabs.installEventHandler(handler, spec, userData);
}

std::optional<HotKeyRef> HotKeySwitch::registerHotKey(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id)
{
    const HotKeyRef ref{++lastRef};
    take(hotKeys[ref] = {keyCode, modifiers, id, std::nullopt});
    return ref;
}

void HotKeySwitch::unregisterHotKey(HotKeyRef hotKey)
{
    const auto found = hotKeys.find(hotKey);
    if (found == hotKeys.end())
        return;
    release(found->second);
    hotKeys.erase(found);
}

void HotKeySwitch::take(HotKey& hotKey)
{
    hotKey.held = current->registerHotKey(hotKey.keyCode, hotKey.modifiers, hotKey.id);
}

void HotKeySwitch::release(HotKey& hotKey)
{
    if (const auto held = std::exchange(hotKey.held, std::nullopt))
        current->unregisterHotKey(*held);
}

} // namespace sablequill
