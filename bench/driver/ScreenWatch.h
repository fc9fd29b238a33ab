// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry.h"
#include "Statistics.h"
#include "XConnection.h"

#include <xcb/damage.h>

#include <optional>
#include <vector>

namespace sablequill {

/// Tells when an area of the screen looks different. The server wakes it when something is drawn,
/// so that waiting takes no processor time from what is measured.
class ScreenWatch {
public:
    /// The connection outlives the watch. Throws std::runtime_error when the server cannot tell.
    ScreenWatch(const XConnection& connection, Area area);
    ScreenWatch(const ScreenWatch&) = delete;
    ScreenWatch& operator=(const ScreenWatch&) = delete;
    ~ScreenWatch();

    using Picture = std::vector<std::uint8_t>;
    /// The area as the screen shows it.
    Picture picture() const;
    /// When the area first looked otherwise; throws std::runtime_error when it never did.
    Clock::time_point waitForChangeFrom(const Picture& before) const;
    /// Returns when the area looks like this; throws std::runtime_error when it never does.
    void waitFor(const Picture& expected) const;

private:
    Clock::time_point waitUntilPicture(const Picture& picture, bool isEqual) const;
    void waitForDamage() const;

    const XConnection& x;
    const Area area;
    const xcb_damage_damage_t damage;
};

} // namespace sablequill
