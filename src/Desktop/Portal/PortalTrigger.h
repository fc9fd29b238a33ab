// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace sablequill {

/// The combination as a portal is asked for it (freedesktop Shortcuts), such as
/// "LOGO+SHIFT+g": modifiers, then the keysym that the key has on an ANSI keyboard.
///
/// `keyCode` and `modifiers` as in HotKeyCenter. Empty for keys that an ANSI keyboard does not have
/// and for modifiers as keys.
QString portalTrigger(std::uint32_t keyCode, std::uint32_t modifiers);

} // namespace sablequill
