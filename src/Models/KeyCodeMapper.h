// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace sablequill::KeyCodeMapper {

/// The one character that stands for a virtual key code (ANSI layout numbering); "?" for the keys
/// that have none here: U, digits, punctuation, space, return, escape, function keys and unknown
/// codes.
QString displayCharacter(std::uint32_t keyCode);

} // namespace sablequill::KeyCodeMapper
