// SPDX-License-Identifier: MIT
#pragma once

#include "XServer.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace sablequill {

/// Which of the server's eight modifiers the keyboard's modifier keys are on, at one moment.
struct KeyboardMap {
    /// Reads the server's present mapping.
    static KeyboardMap read(const XServer& server);

    /// The server's mask for a mask of 256 (command: Super), 512 (shift), 2048 (option: Alt) and
    /// 4096 (control). Nothing when a key that it asks for is on no modifier.
    std::optional<std::uint16_t> serverMask(std::uint32_t modifiers) const;
    /// Every combination of the locking modifiers, 0 among them: a lock must not disarm a hot key.
    std::vector<std::uint16_t> lockVariants() const;
    /// The modifiers that are no locks.
    std::uint16_t significantMask() const;

    std::uint16_t super = 0;
    std::uint16_t alt = 0;
    std::uint16_t numLock = 0;
    std::uint16_t scrollLock = 0;

    bool operator==(const KeyboardMap&) const = default;
};

} // namespace sablequill
