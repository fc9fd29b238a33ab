// SPDX-License-Identifier: MIT
#include "InlineCost.h"

#include <algorithm>
#include <array>
#include <limits>

namespace sablequill::InlineMarkdown {
namespace {

constexpr std::size_t largestText = std::size_t{16} << 20;

/// Bytes up to and with the first line break.
std::size_t firstLineSize(std::string_view text)
{
    std::size_t end = 0;
    while (end < text.size() && text[end] != '\n' && text[end] != '\r')
        ++end;
    const bool isPair = text.substr(end, 2) == "\r\n";
    return std::min(text.size(), end + (isPair ? 2 : 1));
}

bool isBlank(std::string_view line)
{
    return line.find_first_not_of(" \t\n\r") == std::string_view::npos;
}

/// Delimiters, and what follows the first character of an image or of a destination.
bool isCounted(char c)
{
    static constexpr auto counted = [] {
        std::array<bool, 256> table{};
        for (const char each : {'*', '_', '~', '[', '('})
            table[static_cast<unsigned char>(each)] = true;
        return table;
    }();
    return counted[static_cast<unsigned char>(c)];
}

} // namespace

std::uint64_t quadraticCost(std::string_view text)
{
    if (text.size() > largestText)
        return std::numeric_limits<std::uint64_t>::max();
    std::uint64_t delimiterRuns = 0;
    std::uint64_t images = 0;
    std::uint64_t links = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (!isCounted(text[i]))
            continue;
        const char previous = i > 0 ? text[i - 1] : '\0';
        if (text[i] == '[')
            images += previous == '!' ? 1 : 0;
        else if (text[i] == '(')
            links += previous == ']' ? 1 : 0;
        else
            delimiterRuns += previous != text[i] ? 1 : 0;
    }
    return (links + delimiterRuns) * (delimiterRuns + images);
}

std::vector<std::string_view> splitBehindLineBreaks(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        lines.push_back(text.substr(0, firstLineSize(text)));
        text.remove_prefix(lines.back().size());
    }
    return lines;
}

std::vector<std::string_view> splitBehindBlankLines(std::string_view text)
{
    std::vector<std::string_view> pieces;
    std::size_t start = 0;
    std::size_t end = 0;
    while (end < text.size()) {
        const std::string_view line = text.substr(end, firstLineSize(text.substr(end)));
        end += line.size();
        if (isBlank(line)) {
            pieces.push_back(text.substr(start, end - start));
            start = end;
        }
    }
    if (start < text.size())
        pieces.push_back(text.substr(start));
    return pieces;
}

} // namespace sablequill::InlineMarkdown
