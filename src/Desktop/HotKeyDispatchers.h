// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCenter.h"

#include <vector>

namespace sablequill {

/// The dispatchers of a hot-key center.
class HotKeyDispatchers {
public:
    EventHandlerRef install(HotKeyHandler handler, EventTypeSpec spec, void* userData);
    /// Asks the newest first, the next one as long as the answer is `eventNotHandled`.
    void dispatch(const HotKeyEvent& event) const;

private:
    struct Dispatcher {
        HotKeyHandler handler = nullptr;
        EventTypeSpec spec;
        void* userData = nullptr;
    };

    std::vector<Dispatcher> dispatchers;
};

} // namespace sablequill
