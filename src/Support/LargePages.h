// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace sablequill::LargePages {

/// Asks for large pages where memory of some megabytes is about to be filled: page by page, taking
/// it from the system costs more time than filling it. Of no effect on what the memory holds.
void use(void* start, std::size_t size);

} // namespace sablequill::LargePages
