// SPDX-License-Identifier: MIT
#pragma once

#include "Rect.h"

#include <optional>

namespace sablequill {

class Screens {
public:
    /// The main screen without its bars and docks; nothing when no screen is connected.
    virtual std::optional<Rect> mainVisibleFrame() const = 0;

protected:
    ~Screens() = default;
};

} // namespace sablequill
