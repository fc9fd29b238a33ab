// SPDX-License-Identifier: MIT
#include "ParserMemory.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <memory_resource>

namespace sablequill::InlineMarkdown {
namespace {

/// In front of each piece stands its size.
constexpr std::size_t headerSize = alignof(std::max_align_t);

std::pmr::monotonic_buffer_resource& pool()
{
    // Enough for a usual paragraph, and kept for the next one.
    alignas(std::max_align_t) static std::array<std::byte, std::size_t{64} << 10> usualBlock;
    static std::pmr::monotonic_buffer_resource pool(usualBlock.data(), usualBlock.size());
    return pool;
}

// No exception may pass through the parser: it knows no failure, and its own allocator aborts.
void* allocate(std::size_t size) noexcept
{
    auto* const header = static_cast<std::byte*>(pool().allocate(headerSize + size));
    std::memcpy(header, &size, sizeof size);
    return header + headerSize;
}

std::size_t sizeOf(const void* piece)
{
    std::size_t size = 0;
    std::memcpy(&size, static_cast<const std::byte*>(piece) - headerSize, sizeof size);
    return size;
}

void* allocateZeroed(std::size_t count, std::size_t size)
{
    return std::memset(allocate(count * size), 0, count * size);
}

void* resize(void* piece, std::size_t size)
{
    if (!piece)
        return allocate(size);
    if (size <= sizeOf(piece))
        return piece;
    return std::memcpy(allocate(size), piece, sizeOf(piece));
}

void leaveToThePool(void*) { }

} // namespace

ParserMemory::~ParserMemory()
{
    pool().release();
}

cmark_mem* ParserMemory::functions() const
{
    static cmark_mem functions{allocateZeroed, resize, leaveToThePool};
    return &functions;
}

} // namespace sablequill::InlineMarkdown
