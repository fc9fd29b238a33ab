// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCenter.h"

#include <vector>

namespace sablequill {

/// A dispatcher that records what reaches it.
struct Presses {
    /// From here on it hears of presses, as the newest dispatcher.
    void installIn(HotKeyCenter& center)
    {
        center.installEventHandler(
            [](const HotKeyEvent& event, void* userData) {
                auto& presses = *static_cast<Presses*>(userData);
                presses.ids.push_back(event.hotKeyID);
                return presses.answer;
            },
            hotKeyPressed, this);
    }

    std::vector<HotKeyID> ids;
    std::int32_t answer = HotKeyStatus::noError;
};

} // namespace sablequill
