// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

/// Prints the message and a line feed on standard error and ends the process with exit code 1,
/// without a core dump and without running destructors.
[[noreturn]] void fatalStop(const char* message);

} // namespace sablequill
