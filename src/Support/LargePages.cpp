// SPDX-License-Identifier: MIT
#include "LargePages.h"

#include <sys/mman.h>

#include <cstdint>

namespace sablequill::LargePages {
namespace {

constexpr std::size_t smallPage = 4096;
constexpr std::size_t least = std::size_t{2} << 20;

} // namespace

void use(void* start, std::size_t size)
{
    if (size < 2 * least)
        return;
    const auto first = reinterpret_cast<std::uintptr_t>(start);
    const std::uintptr_t aligned = (first + smallPage - 1) / smallPage * smallPage;
    const std::size_t length = (first + size - aligned) / smallPage * smallPage;
    // Where the system has none the memory is as good as before.
    ::madvise(reinterpret_cast<void*>(aligned), length, MADV_HUGEPAGE);
}

} // namespace sablequill::LargePages
