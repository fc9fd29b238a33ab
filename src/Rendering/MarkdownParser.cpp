// SPDX-License-Identifier: MIT
#include "MarkdownParser.h"

#include "InlineMarkdown.h"
#include "MarkdownParserPrivate.h"
#include "Text.h"

namespace sablequill::MarkdownParser {
namespace {

constexpr QStringView largeHeadingPrefix = u"# ";
constexpr QStringView smallHeadingPrefix = u"## ";
constexpr QStringView bulletPrefixes[] = {u"- ", u"* "};
constexpr QStringView bullet = u"  \u2022  ";
constexpr QStringView boldDelimiter = u"**";
constexpr double largeHeadingAddition = 6;
constexpr double smallHeadingAddition = 3;

RunAttributes systemFont(double size, FontWeight weight = FontWeight::regular)
{
    RunAttributes attributes;
    attributes.font = RunFont{size, weight};
    return attributes;
}

RunAttributes colored(RunAttributes attributes, SemanticColor color)
{
    attributes.foregroundColor = color;
    return attributes;
}

bool isBullet(QStringView trimmed)
{
    return trimmed.startsWith(bulletPrefixes[0]) || trimmed.startsWith(bulletPrefixes[1]);
}

AttributedString parseLine(QStringView line, double fontSize)
{
    const QStringView trimmed = Text::trimmedWhitespace(line);
    AttributedString result;
    if (trimmed.startsWith(largeHeadingPrefix)) {
        const RunAttributes font =
            systemFont(fontSize + largeHeadingAddition, FontWeight::semibold);
        result.append(
            trimmed.sliced(largeHeadingPrefix.size()), colored(font, SemanticColor::primary));
    } else if (trimmed.startsWith(smallHeadingPrefix)) {
        result.append(trimmed.sliced(smallHeadingPrefix.size()),
            systemFont(fontSize + smallHeadingAddition, FontWeight::semibold));
    } else if (isBullet(trimmed)) {
        result.append(bullet, colored(systemFont(fontSize), SemanticColor::secondary));
        result.append(parseInline(trimmed.sliced(bulletPrefixes[0].size()), fontSize));
    } else {
        result.append(parseInline(line, fontSize));
    }
    return result;
}

} // namespace

AttributedString attributedString(const QString& text, double fontSize)
{
    auto result = InlineMarkdown::read(text);
    if (!result)
        return manualParse(text, fontSize);
    applyTypography(*result, fontSize);
    return *std::move(result);
}

void applyTypography(AttributedString& string, double baseFontSize)
{
    for (Run& run : string.runs) {
        const bool isStrong =
            (run.attributes.inlinePresentationIntent & InlinePresentationIntent::stronglyEmphasized)
            != 0;
        run.attributes.font =
            RunFont{baseFontSize, isStrong ? FontWeight::bold : FontWeight::regular};
    }
}

AttributedString manualParse(const QString& text, double fontSize)
{
    AttributedString result;
    Text::LineReader lines(text);
    bool isFirst = true;
    while (const auto line = lines.next()) {
        if (!isFirst)
            result.append(u"\n");
        isFirst = false;
        result.append(parseLine(*line, fontSize));
    }
    return result;
}

AttributedString parseInline(QStringView text, double fontSize)
{
    const RunAttributes regular = systemFont(fontSize);
    AttributedString result;
    QStringView remaining = text;
    while (!remaining.isEmpty()) {
        const qsizetype opening = remaining.indexOf(boldDelimiter);
        const qsizetype closing =
            opening < 0 ? -1 : remaining.indexOf(boldDelimiter, opening + boldDelimiter.size());
        if (closing < 0) {
            result.append(remaining, regular);
            break;
        }
        const qsizetype start = opening + boldDelimiter.size();
        result.append(remaining.first(opening), regular);
        result.append(
            remaining.sliced(start, closing - start), systemFont(fontSize, FontWeight::bold));
        remaining = remaining.sliced(closing + boldDelimiter.size());
    }
    return result;
}

} // namespace sablequill::MarkdownParser
