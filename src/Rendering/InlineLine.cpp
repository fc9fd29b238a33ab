// SPDX-License-Identifier: MIT
#include "InlineLine.h"

#include "CharacterSearch.h"
#include "HtmlOpeners.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <vector>

namespace sablequill::InlineMarkdown {
namespace {

/// U+205F flanks delimiters as the start and the end of a text do.
constexpr std::string_view guard = "\xE2\x81\x9F";
constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// Spaces that no named character reference stands for.
struct StandIn {
    std::uint32_t codePoint;
    std::string_view bytes;
};
constexpr std::array standIns{
    StandIn{0x2000, "\xE2\x80\x80"},
    StandIn{0x2001, "\xE2\x80\x81"},
    StandIn{0x2006, "\xE2\x80\x86"},
    StandIn{0x1680, "\xE1\x9A\x80"},
    StandIn{0x202F, "\xE2\x80\xAF"},
    StandIn{0x3000, "\xE3\x80\x80"},
};

/// By the number of form feeds after the tab, less one. The tab ends a bare link destination, which
/// a form feed alone would not do; the odd entries follow a backslash.
constexpr std::array<std::string_view, 6> lineBreakCodes{
    "\t\f", "\t\f\f", "\t\f\f\f", "\t\f\f\f\f", "\t\f\f\f\f\f", "\t\f\f\f\f\f\f"};
constexpr std::array<std::string_view, 6> lineBreaks{"\n", "\n", "\r", "\r", "\r\n", "\r\n"};

bool isLineBreak(char c)
{
    return c == '\n' || c == '\r';
}

constexpr std::size_t mostReferenceDigits = 8;

/// The number in `&#12;` or `&#xC;` at the start of the text, as cmark-gfm reads references.
std::optional<std::uint32_t> numericReference(std::string_view text)
{
    if (!text.starts_with("&#"))
        return {};
    const bool isHexadecimal = text.size() > 2 && (text[2] == 'x' || text[2] == 'X');
    text.remove_prefix(isHexadecimal ? 3 : 2);
    const std::string_view digits =
        text.substr(0, text.substr(0, mostReferenceDigits + 1).find(';'));
    if (digits.size() > mostReferenceDigits || digits.size() == text.size())
        return {};
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(
        digits.data(), digits.data() + digits.size(), number, isHexadecimal ? 16 : 10);
    if (error != std::errc{} || end != digits.data() + digits.size())
        return {};
    return number;
}

bool hasReferenceTo(std::string_view text, std::uint32_t codePoint)
{
    for (auto at = text.find("&#"); at != std::string_view::npos; at = text.find("&#", at + 1)) {
        if (numericReference(text.substr(at)) == codePoint)
            return true;
    }
    return false;
}

/// Empty when the text has no form feed, and also when it has all the spaces that could stand for
/// one.
std::string_view standInForFormFeed(std::string_view text)
{
    if (text.find('\f') == std::string_view::npos)
        return {};
    for (const StandIn& standIn : standIns) {
        const bool isTaken = text.find(standIn.bytes) != std::string_view::npos
            || hasReferenceTo(text, standIn.codePoint);
        if (!isTaken)
            return standIn.bytes;
    }
    return {};
}

/// Writes the body of the line.
class LineEncoder {
public:
    LineEncoder(std::string_view text, std::string_view formFeed, std::string& line)
        : text(text)
        , formFeed(formFeed.empty() ? guard : formFeed)
        , unclosedOpeners(unclosedHtmlOpeners(text))
        , line(line)
    {
    }

    void encode()
    {
        CharacterSearch specials(text, std::array{'\n', '\r', '\f', '\0', '<', ']', '&'});
        std::size_t copied = 0;
        for (std::size_t i = specials.next(0); i < text.size();) {
            const Replacement replacement = replacementAt(i);
            if (replacement.length > 0) {
                line += text.substr(copied, i - copied);
                line += replacement.bytes;
                copied = i + replacement.length;
            }
            i = specials.next(std::max(copied, i + 1));
        }
        line += text.substr(copied);
    }

private:
    /// No length: what stands there stays.
    struct Replacement {
        std::size_t length = 0;
        std::string_view bytes = {};
    };

    Replacement replacementAt(std::size_t i)
    {
        switch (text[i]) {
        case '\0':
            return {1, replacementCharacter};
        case '\f':
            return {1, formFeed};
        case '<':
            return isUnclosedOpener(i) ? Replacement{1, "<\f\f"} : Replacement{};
        case ']':
            return isBrokenDestination(i) ? Replacement{1, "]\f\f"} : Replacement{};
        case '&':
            // Decoded, it could not be told from a form feed of ours.
            return numericReference(text.substr(i)) == std::uint32_t{'\f'} ? Replacement{1, "&\f\f"}
                                                                           : Replacement{};
        default:
            return lineBreak(i);
        }
    }

    Replacement lineBreak(std::size_t i) const
    {
        const bool isPair = text.substr(i, 2) == "\r\n";
        const std::size_t kind = isPair ? 2 : text[i] == '\r' ? 1 : 0;
        const std::size_t code = 2 * kind + (isEscaped(i) ? 1 : 0);
        return {lineBreaks[code].size(), lineBreakCodes[code]};
    }

    bool isEscaped(std::size_t i) const
    {
        std::size_t start = i;
        while (start > 0 && text[start - 1] == '\\')
            --start;
        return (i - start) % 2 == 1;
    }

    /// The openers are asked for in ascending order.
    bool isUnclosedOpener(std::size_t i)
    {
        if (nextOpener == unclosedOpeners.size() || unclosedOpeners[nextOpener] != i)
            return false;
        ++nextOpener;
        return true;
    }

    /// A link destination in angle brackets holds no line break, but would hold the code for one.
    bool isBrokenDestination(std::size_t i) const
    {
        if (text.substr(i, 2) != "](")
            return false;
        const std::size_t start = text.find_first_not_of(" \t\v\n\r", i + 2);
        if (start == std::string_view::npos || text[start] != '<')
            return false;
        std::size_t end = start + 1;
        while (end < text.size() && !isLineBreak(text[end]) && text[end] != '<' && text[end] != '>')
            end += isEscapedPunctuation(end) ? 2 : 1;
        return end < text.size() && isLineBreak(text[end]);
    }

    bool isEscapedPunctuation(std::size_t i) const
    {
        return text[i] == '\\' && i + 1 < text.size() && !isLineBreak(text[i + 1]);
    }

    std::string_view text;
    std::string_view formFeed;
    std::vector<std::size_t> unclosedOpeners;
    std::size_t nextOpener = 0;
    std::string& line;
};

/// Appends with each `from` written as `to`; no `from` means none.
void appendReplaced(
    std::string_view text, std::string_view from, std::string_view to, std::string& out)
{
    std::size_t start = 0;
    for (std::size_t at = 0;
         !from.empty() && (at = text.find(from, start)) != std::string_view::npos;
         start = at + from.size()) {
        out += text.substr(start, at - start);
        out += to;
    }
    out += text.substr(start);
}

} // namespace

InlineLine::InlineLine(std::string_view text)
    : formFeed(standInForFormFeed(text))
{
    line.reserve(text.size() + text.size() / 16 + 2 * guard.size() + 1);
    line += guard;
    LineEncoder(text, formFeed, line).encode();
    line += guard;
    // Without it the parser would keep the line for the text to come, and copy it.
    line += '\n';
}

std::size_t InlineLine::guardSize()
{
    return guard.size();
}

void InlineLine::appendText(std::string_view literal, std::string& out) const
{
    append(literal, HardBreak::dropsBackslash, out);
}

void InlineLine::appendVerbatim(std::string_view literal, std::string& out) const
{
    append(literal, HardBreak::keepsBackslash, out);
}

void InlineLine::append(std::string_view literal, HardBreak hardBreak, std::string& out) const
{
    std::size_t at = literal.find('\f');
    // What nearly all literals are.
    if (at == std::string_view::npos && formFeed.empty()) {
        out += literal;
        return;
    }
    std::size_t start = 0;
    for (; at != std::string_view::npos; at = literal.find('\f', start)) {
        const std::size_t end = std::min(literal.find_first_not_of('\f', at), literal.size());
        const std::size_t count = end - at;
        const bool isBreak = at > start && literal[at - 1] == '\t' && count <= lineBreaks.size();
        appendReplaced(literal.substr(start, at - start - (isBreak ? 1 : 0)), formFeed, "\f", out);
        if (isBreak) {
            const bool isHard = count % 2 == 0;
            if (isHard && hardBreak == HardBreak::dropsBackslash && out.ends_with('\\'))
                out.pop_back();
            out += lineBreaks[count - 1];
        }
        start = end;
    }
    appendReplaced(literal.substr(start), formFeed, "\f", out);
}

} // namespace sablequill::InlineMarkdown
