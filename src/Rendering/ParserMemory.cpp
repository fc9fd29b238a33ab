// SPDX-License-Identifier: MIT
#include "ParserMemory.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <vector>

namespace sablequill::InlineMarkdown {
namespace {

constexpr std::size_t alignment = alignof(std::max_align_t);
/// Bytes; enough for a usual paragraph, and kept for the next one.
constexpr std::size_t usualBlock = std::size_t{64} << 10;

std::size_t aligned(std::size_t size)
{
    return (size + alignment - 1) / alignment * alignment;
}

/// Hands out one piece behind the other. In front of each stands its size.
class Pool {
public:
    void* allocate(std::size_t size)
    {
        const std::size_t needed = alignment + aligned(size);
        if (needed > static_cast<std::size_t>(end - next))
            addBlock(needed);
        std::byte* const piece = next + alignment;
        next += needed;
        std::memcpy(piece - alignment, &size, sizeof size);
        return piece;
    }

    void* resize(void* piece, std::size_t size)
    {
        const std::size_t held = sizeOf(piece);
        if (size <= held)
            return piece;
        void* const larger = allocate(size);
        if (piece)
            std::memcpy(larger, piece, held);
        return larger;
    }

    /// Takes the piece back when it is the last one.
    void release(void* piece)
    {
        auto* const bytes = static_cast<std::byte*>(piece);
        if (bytes && bytes + aligned(sizeOf(piece)) == next)
            next = bytes - alignment;
    }

    /// Keeps the first block.
    void clear()
    {
        if (blocks.empty())
            return;
        blocks.resize(1);
        next = blocks.front().get();
        end = next + usualBlock;
    }

private:
    struct Free {
        void operator()(std::byte* block) const { std::free(block); }
    };

    static std::size_t sizeOf(const void* piece)
    {
        std::size_t size = 0;
        if (piece)
            std::memcpy(&size, static_cast<const std::byte*>(piece) - alignment, sizeof size);
        return size;
    }

    void addBlock(std::size_t needed)
    {
        if (blocks.empty())
            addBlockOf(usualBlock);
        if (needed > static_cast<std::size_t>(end - next))
            // Ever larger ones: a long text needs few.
            addBlockOf(std::max(needed, usualBlock << std::min<std::size_t>(blocks.size(), 6)));
    }

    void addBlockOf(std::size_t size)
    {
        auto* const block = static_cast<std::byte*>(std::malloc(size));
        // As the parser's own allocator does: the parser knows no failure.
        if (!block)
            std::abort();
        blocks.emplace_back(block);
        next = block;
        end = block + size;
    }

    std::vector<std::unique_ptr<std::byte[], Free>> blocks;
    std::byte* next = nullptr;
    std::byte* end = nullptr;
};

Pool& pool()
{
    static Pool pool;
    return pool;
}

void* allocateZeroed(std::size_t count, std::size_t size)
{
    return std::memset(pool().allocate(count * size), 0, count * size);
}

void* resize(void* piece, std::size_t size)
{
    return pool().resize(piece, size);
}

void release(void* piece)
{
    pool().release(piece);
}

} // namespace

ParserMemory::~ParserMemory()
{
    pool().clear();
}

cmark_mem* ParserMemory::functions() const
{
    static cmark_mem functions{allocateZeroed, resize, release};
    return &functions;
}

} // namespace sablequill::InlineMarkdown
