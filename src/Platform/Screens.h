// SPDX-License-Identifier: MIT
#pragma once

#include "Rect.h"

#include <optional>

namespace sablequill {

/// A screen as a whole, and without its bars and docks.
struct ScreenFrames {
    Rect frame;
    Rect visibleFrame;

    bool operator==(const ScreenFrames&) const = default;
};

class Screens {
public:
    /// The main screen without its bars and docks; nothing when no screen is connected.
    virtual std::optional<Rect> mainVisibleFrame() const = 0;
    /// The screen that holds the middle of `rect`, else the main one; nothing when no screen is
    /// connected.
    virtual std::optional<ScreenFrames> screenOf(const Rect& rect) const = 0;

protected:
    ~Screens() = default;
};

} // namespace sablequill
