// SPDX-License-Identifier: MIT
#include "Utf8Runs.h"

#include "Text.h"

#include <functional>
#include <numeric>
#include <string_view>
#include <utility>

namespace sablequill::InlineMarkdown {
namespace {

/// UTF-16 units that the text takes: one for each character, two for those of four bytes.
qsizetype unitsOf(std::string_view utf8)
{
    const auto units = [](char byte) {
        const auto value = static_cast<unsigned char>(byte);
        return ((value & 0xC0U) != 0x80U ? 1 : 0) + (value >= 0xF0U ? 1 : 0);
    };
    return std::transform_reduce(utf8.begin(), utf8.end(), qsizetype{0}, std::plus<>(), units);
}

} // namespace

void Utf8Runs::endRun(const RunAttributes& attributes)
{
    const auto newEnd = static_cast<qsizetype>(text.size());
    appendRun(runs, {end, newEnd - end, attributes});
    end = newEnd;
}

AttributedString Utf8Runs::decoded() &&
{
    const std::string_view utf8(text.data(), static_cast<std::size_t>(end));
    AttributedString string{Text::fromUtf8(utf8), std::move(runs)};
    if (string.text.size() == end)
        return string;
    qsizetype start = 0;
    for (Run& run : string.runs) {
        const std::string_view bytes(text.data() + run.start, static_cast<std::size_t>(run.length));
        run.start = std::exchange(start, start + unitsOf(bytes));
        run.length = start - run.start;
    }
    return string;
}

} // namespace sablequill::InlineMarkdown
