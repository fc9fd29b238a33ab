// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>

namespace sablequill {

/// Microseconds of the quickest of five calls: what else the machine does only ever adds.
inline std::int64_t leastTime(const std::function<void()>& work)
{
    std::int64_t least = std::numeric_limits<std::int64_t>::max();
    for (int call = 0; call < 5; ++call) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const auto taken = std::chrono::steady_clock::now() - start;
        least = std::min<std::int64_t>(
            least, std::chrono::duration_cast<std::chrono::microseconds>(taken).count());
    }
    return least;
}

} // namespace sablequill
