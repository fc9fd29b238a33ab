// SPDX-License-Identifier: MIT
#include "InlineCost.h"

#include "CharacterSearch.h"

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

/// How many characters are counted, each together with the one before it. Nothing is skipped, so
/// that the compiler can take many at once.
template <class Predicate> std::uint64_t count(std::string_view text, Predicate isCounted)
{
    if (text.empty())
        return 0;
    std::uint32_t found = isCounted('\0', text.front()) ? 1 : 0;
    for (std::size_t i = 1; i < text.size(); ++i)
        found += isCounted(text[i - 1], text[i]) ? 1 : 0;
    return found;
}

} // namespace

std::uint64_t quadraticCost(std::string_view text)
{
    if (text.size() > largestText)
        return std::numeric_limits<std::uint64_t>::max();
    const std::uint64_t delimiterRuns = count(text, [](char previous, char c) {
        return ((c == '*') | (c == '_') | (c == '~')) & (c != previous);
    });
    const std::uint64_t images =
        count(text, [](char previous, char c) { return (previous == '!') & (c == '['); });
    const std::uint64_t links =
        count(text, [](char previous, char c) { return (previous == ']') & (c == '('); });
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
