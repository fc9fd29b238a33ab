// SPDX-License-Identifier: MIT
#include "InlineMarkdown.h"

#include "InlineCost.h"
#include "InlineTree.h"

#include <QByteArray>
#include <QStringEncoder>

#include <string_view>
#include <utility>

namespace sablequill::InlineMarkdown {
namespace {

/// Steps for one text, shared out to its parts by their length.
constexpr double stepBudget = 5e7;

class Reader {
public:
    explicit Reader(std::string_view text)
        : stepsPerByte(stepBudget / static_cast<double>(text.size()))
    {
        result.text.reserve(text.size());
        readWhole(text);
    }

    Utf8Runs result;

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
        if (isAffordable(text)) {
            appendRuns(text, result);
        } else {
            result.text += text;
            result.endRun({});
        }
    }

    double stepsPerByte;
};

} // namespace

std::optional<AttributedString> read(const QString& text)
{
    if (text.isEmpty())
        return AttributedString{};
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    const QByteArray utf8 = encoder(text);
    if (encoder.hasError())
        return {};
    Reader reader({utf8.constData(), static_cast<std::size_t>(utf8.size())});
    return std::move(reader.result).decoded();
}

} // namespace sablequill::InlineMarkdown
