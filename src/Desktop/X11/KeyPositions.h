// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

namespace sablequill {

/// The X server's code of the key that lies where `keyCode` (a virtual key code of the ANSI layout)
/// lies, whatever the keyboard's layout prints on it. Nothing for codes without a place on a PC
/// keyboard. Holds for servers that number keys after the kernel's evdev codes, as all on Linux do.
std::optional<std::uint8_t> serverKeyCode(std::uint32_t keyCode);

} // namespace sablequill
