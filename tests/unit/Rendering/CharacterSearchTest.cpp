// SPDX-License-Identifier: MIT
#include "CharacterSearch.h"

#include <gtest/gtest.h>

#include <vector>

namespace sablequill::InlineMarkdown {
namespace {

std::vector<std::size_t> allPlaces(std::string_view text)
{
    CharacterSearch search(text, std::array{'a', '\0'});
    std::vector<std::size_t> places;
    for (std::size_t at = search.next(0); at < text.size(); at = search.next(at + 1))
        places.push_back(at);
    return places;
}

TEST(CharacterSearch, next_eachPlaceInTurn_findsEachWantedCharacter)
{
    using namespace std::literals;
    EXPECT_EQ(allPlaces("xa\0\0yaxx"sv), (std::vector<std::size_t>{1, 2, 3, 5}));
    EXPECT_EQ(allPlaces("xyz"), std::vector<std::size_t>{});
    EXPECT_EQ(allPlaces(""), std::vector<std::size_t>{});
}

TEST(CharacterSearch, next_startBehindAPlace_skipsIt)
{
    CharacterSearch search("a--a-a", std::array{'a'});
    EXPECT_EQ(search.next(1), 3U);
    EXPECT_EQ(search.next(3), 3U);
    EXPECT_EQ(search.next(4), 5U);
    EXPECT_EQ(search.next(6), 6U);
}

} // namespace
} // namespace sablequill::InlineMarkdown
