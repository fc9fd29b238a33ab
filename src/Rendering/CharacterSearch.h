// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace sablequill::InlineMarkdown {

/// Looks for the next of a few characters, each with the standard library's search for one, which
/// takes many bytes at once. The text outlives it.
template <std::size_t count> class CharacterSearch {
public:
    CharacterSearch(std::string_view text, const std::array<char, count>& wanted)
        : text(text)
        , wanted(wanted)
    {
        for (std::size_t i = 0; i < count; ++i)
            places[i] = text.find(wanted[i]);
    }

    /// The first place at or behind `start`, or the text's size. Starts are given in ascending
    /// order: the whole search takes time in proportion to the text.
    std::size_t next(std::size_t start)
    {
        std::size_t nearest = text.size();
        for (std::size_t i = 0; i < count; ++i) {
            if (places[i] < start)
                places[i] = text.find(wanted[i], start);
            nearest = std::min(nearest, places[i]);
        }
        return nearest;
    }

private:
    std::string_view text;
    std::array<char, count> wanted;
    std::array<std::size_t, count> places;
};

} // namespace sablequill::InlineMarkdown
