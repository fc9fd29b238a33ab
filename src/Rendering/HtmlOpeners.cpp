// SPDX-License-Identifier: MIT
#include "HtmlOpeners.h"

#include <algorithm>

namespace sablequill::InlineMarkdown {
namespace {

constexpr std::string_view cdataOpener = "<![CDATA[";
constexpr std::string_view alphanumerics =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::string_view mailSymbols = ".!#$%&'*+/=?^_`{|}~-";
constexpr std::size_t longestMailLabel = 63;

/// Bytes at the start that are letters, digits or one of `others`.
std::size_t leadingNameSize(std::string_view text, std::string_view others)
{
    std::size_t size = 0;
    while (size < text.size()
        && (alphanumerics.find(text[size]) != std::string_view::npos
            || others.find(text[size]) != std::string_view::npos))
        ++size;
    return size;
}

/// A mail address and its `>`, as CommonMark has it behind a `<`. It may begin as an instruction or
/// a declaration does.
bool startsWithMailAddress(std::string_view text)
{
    text.remove_prefix(leadingNameSize(text, mailSymbols));
    if (!text.starts_with('@'))
        return false;
    do {
        text.remove_prefix(1);
        const std::string_view label = text.substr(0, leadingNameSize(text, "-"));
        if (label.empty() || label.size() > longestMailLabel || label.starts_with('-')
            || label.ends_with('-'))
            return false;
        text.remove_prefix(label.size());
    } while (text.starts_with('.'));
    return text.starts_with('>');
}

/// Runs cmark-gfm's three scanners backward over the text. Each flag says whether the scanner, in
/// that state in front of the current character, comes to its end. The states follow the scanners
/// to the letter: "??>" ends no processing instruction and "]]]>" no CDATA section.
class BackwardScanner {
public:
    explicit BackwardScanner(std::string_view text)
        : text(text)
    {
    }

    std::vector<std::size_t> unclosedOpeners()
    {
        std::vector<std::size_t> found;
        for (std::size_t i = text.size(); i-- > 0;) {
            if (text[i] == '<' && isUnclosed(i) && !startsWithMailAddress(text.substr(i + 1)))
                found.push_back(i);
            step(text[i], i);
        }
        std::reverse(found.begin(), found.end());
        return found;
    }

private:
    struct InstructionOutcomes {
        bool inside = false;
        bool afterQuestionMark = false;
    };
    struct SectionOutcomes {
        bool inside = false;
        bool afterBracket = false;
        bool afterTwoBrackets = false;
    };

    void step(char c, std::size_t position)
    {
        const InstructionOutcomes next = instruction;
        instruction.inside = c == '?' ? next.afterQuestionMark : next.inside;
        instruction.afterQuestionMark = c == '>' || next.inside;

        const SectionOutcomes after = section;
        section.inside = c == ']' ? after.afterBracket : after.inside;
        section.afterBracket = c == ']' ? after.afterTwoBrackets : after.inside;
        section.afterTwoBrackets = c == '>' || after.inside;

        if (c == '>')
            hasGreaterThan = true;
        instructionHistory[position % 2] = instruction.inside;
        sectionHistory[position % sectionDistance] = section.inside;
    }

    char at(std::size_t position) const { return position < text.size() ? text[position] : '\0'; }

    bool isUnclosed(std::size_t position) const
    {
        if (at(position + 1) == '?')
            return !instructionHistory[position % 2];
        if (at(position + 1) != '!')
            return false;
        if (text.substr(position, cdataOpener.size()) == cdataOpener)
            return !sectionHistory[position % sectionDistance];
        const char name = at(position + 2);
        return name >= 'A' && name <= 'Z' && !hasGreaterThan;
    }

    static constexpr std::size_t sectionDistance = cdataOpener.size();

    std::string_view text;
    InstructionOutcomes instruction;
    SectionOutcomes section;
    bool hasGreaterThan = false;
    /// Slot `position % distance` still holds the outcome behind the opener when the scan comes to
    /// the opener itself.
    bool instructionHistory[2] = {};
    bool sectionHistory[sectionDistance] = {};
};

} // namespace

std::vector<std::size_t> unclosedHtmlOpeners(std::string_view text)
{
    const bool hasOpener =
        text.find("<?") != std::string_view::npos || text.find("<!") != std::string_view::npos;
    return hasOpener ? BackwardScanner(text).unclosedOpeners() : std::vector<std::size_t>{};
}

} // namespace sablequill::InlineMarkdown
