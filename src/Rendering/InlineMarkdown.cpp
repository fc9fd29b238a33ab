// SPDX-License-Identifier: MIT
#include "InlineMarkdown.h"

#include "InlineCost.h"
#include "InlineTree.h"

#include <QByteArray>

#include <cstdint>
#include <string_view>

namespace sablequill::InlineMarkdown {
namespace {

/// Steps for one text, shared out to its parts by their length.
constexpr double stepBudget = 5e7;

class Reader {
public:
    explicit Reader(std::string_view text)
        : stepsPerByte(stepBudget / static_cast<double>(text.size()))
    {
        readWhole(text);
    }

    AttributedString result;

private:
    bool isAffordable(std::string_view text) const
    {
        const auto cost = static_cast<double>(quadraticCost(text));
        return cost <= stepsPerByte * static_cast<double>(text.size());
    }

    void readWhole(std::string_view text)
    {
        if (isAffordable(text)) {
            appendRuns(text, result);
            return;
        }
        for (const std::string_view part : splitBehindBlankLines(text))
            readParagraph(part);
    }

    void readParagraph(std::string_view text)
    {
        if (isAffordable(text)) {
            appendRuns(text, result);
            return;
        }
        for (const std::string_view line : splitBehindLineBreaks(text))
            readSingleLine(line);
    }

    void readSingleLine(std::string_view text)
    {
        if (isAffordable(text))
            appendRuns(text, result);
        else
            appendPlain(text, {}, result);
    }

    double stepsPerByte;
};

/// Looks at every unit, which is quicker for most texts than to stop at the first.
bool hasSurrogates(QStringView text)
{
    std::uint16_t found = 0;
    for (const char16_t unit :
        std::u16string_view(text.utf16(), static_cast<std::size_t>(text.size())))
        found = static_cast<std::uint16_t>(found | ((unit & 0xF800) == 0xD800 ? 1 : 0));
    return found != 0;
}

} // namespace

std::optional<AttributedString> read(const QString& text)
{
    if (hasSurrogates(text) && !text.isValidUtf16())
        return {};
    if (text.isEmpty())
        return AttributedString{};
    const QByteArray utf8 = text.toUtf8();
    return Reader(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size()))).result;
}

} // namespace sablequill::InlineMarkdown
