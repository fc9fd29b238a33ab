// SPDX-License-Identifier: MIT
#include "HotKeyDispatchers.h"

namespace sablequill {

EventHandlerRef HotKeyDispatchers::install(
    HotKeyHandler handler, EventTypeSpec spec, void* userData)
{
    dispatchers.push_back({handler, spec, userData});
    return EventHandlerRef{dispatchers.size()};
}

void HotKeyDispatchers::dispatch(const HotKeyEvent& event) const
{
    for (auto newest = dispatchers.rbegin(); newest != dispatchers.rend(); ++newest) {
        if (newest->spec == hotKeyPressed
            && newest->handler(event, newest->userData) != HotKeyStatus::eventNotHandled)
            return;
    }
}

} // namespace sablequill
