// SPDX-License-Identifier: MIT
#include "ParserMemory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace sablequill::InlineMarkdown {
namespace {

bool isZero(const void* piece, std::size_t size)
{
    const auto* bytes = static_cast<const unsigned char*>(piece);
    return std::all_of(bytes, bytes + size, [](unsigned char byte) { return byte == 0; });
}

TEST(ParserMemory, calloc_anySize_alignedAndZeroAlsoWhereSomethingWas)
{
    for (int round = 0; round < 2; ++round) {
        const ParserMemory memory;
        for (const std::size_t size : {1, 7, 100, 70'000, 3, 5'000'000}) {
            void* piece = memory.functions()->calloc(size, 1);
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece) % alignof(std::max_align_t), 0U);
            EXPECT_TRUE(isZero(piece, size));
            std::memset(piece, 0xFF, size);
        }
    }
}

TEST(ParserMemory, realloc_growing_keepsTheBytesAndLeavesOthersAlone)
{
    const ParserMemory memory;
    auto* piece = static_cast<char*>(memory.functions()->realloc(nullptr, 4));
    std::memcpy(piece, "abc", 4);
    auto* other = static_cast<char*>(memory.functions()->calloc(1, 4));
    for (const std::size_t size : {8, 1000, 100'000}) {
        piece = static_cast<char*>(memory.functions()->realloc(piece, size));
        EXPECT_STREQ(piece, "abc");
        std::memset(piece + 4, 'x', size - 4);
        EXPECT_TRUE(isZero(other, 4));
    }
}

TEST(ParserMemory, free_anyPiece_noneIsHandedOutTwice)
{
    const ParserMemory memory;
    void* first = memory.functions()->calloc(1, 32);
    void* second = memory.functions()->calloc(1, 32);
    memory.functions()->free(first);
    memory.functions()->free(nullptr);
    EXPECT_NE(memory.functions()->calloc(1, 32), second);
}

} // namespace
} // namespace sablequill::InlineMarkdown
