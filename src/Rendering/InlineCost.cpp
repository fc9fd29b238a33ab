// SPDX-License-Identifier: MIT
#include "InlineCost.h"

#include "CharacterSearch.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace sablequill::InlineMarkdown {
namespace {

constexpr std::size_t largestText = std::size_t{16} << 20;

/// Takes the text's lines one by one, each with its line break.
class LineSplitter {
public:
    explicit LineSplitter(std::string_view text)
        : text(text)
        , breaks(text, {'\n', '\r'})
    {
    }

    bool isAtEnd() const { return start == text.size(); }

    std::string_view next()
    {
        const std::size_t end = breaks.next(start);
        const bool isPair = text.substr(end, 2) == "\r\n";
        const std::string_view line = text.substr(start, end - start + (isPair ? 2 : 1));
        start += line.size();
        return line;
    }

private:
    std::string_view text;
    CharacterSearch<2> breaks;
    std::size_t start = 0;
};

bool isBlank(std::string_view line)
{
    return line.find_first_not_of(" \t\n\r") == std::string_view::npos;
}

std::uint64_t count(std::string_view text, std::string_view wanted)
{
    std::uint64_t found = 0;
    for (std::size_t at = text.find(wanted); at != std::string_view::npos;
         at = text.find(wanted, at + wanted.size()))
        ++found;
    return found;
}

/// Runs of one character.
std::uint64_t countDelimiterRuns(std::string_view text)
{
    CharacterSearch delimiters(text, std::array{'*', '_', '~'});
    std::uint64_t found = 0;
    for (std::size_t start = delimiters.next(0); start < text.size(); ++found) {
        const std::size_t end = std::min(text.find_first_not_of(text[start], start), text.size());
        start = delimiters.next(end);
    }
    return found;
}

} // namespace

std::uint64_t quadraticCost(std::string_view text)
{
    if (text.size() > largestText)
        return std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t delimiterRuns = countDelimiterRuns(text);
    const std::uint64_t images = count(text, "![");
    const std::uint64_t links = count(text, "](");
    return (links + delimiterRuns) * (delimiterRuns + images);
}

std::vector<std::string_view> splitBehindLineBreaks(std::string_view text)
{
    std::vector<std::string_view> lines;
    for (LineSplitter splitter(text); !splitter.isAtEnd();)
        lines.push_back(splitter.next());
    return lines;
}

std::vector<std::string_view> splitBehindBlankLines(std::string_view text)
{
    std::vector<std::string_view> pieces;
    std::size_t size = 0;
    for (LineSplitter splitter(text); !splitter.isAtEnd();) {
        const std::string_view line = splitter.next();
        size += line.size();
        if (!isBlank(line) && !splitter.isAtEnd())
            continue;
        pieces.push_back(text.substr(0, size));
        text.remove_prefix(std::exchange(size, 0));
    }
    return pieces;
}

} // namespace sablequill::InlineMarkdown
