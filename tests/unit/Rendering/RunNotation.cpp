// SPDX-License-Identifier: MIT
#include "RunNotation.h"

#include <utility>

namespace sablequill::test {
namespace {

constexpr std::pair<std::uint32_t, const char*> intentNames[] = {
    {InlinePresentationIntent::stronglyEmphasized, "strong"},
    {InlinePresentationIntent::emphasized, "emphasis"},
    {InlinePresentationIntent::code, "code"},
    {InlinePresentationIntent::strikethrough, "strike"},
    {InlinePresentationIntent::inlineHTML, "html"},
};

std::string attributeNotation(const RunAttributes& attributes)
{
    std::string names;
    for (const auto& [bit, name] : intentNames) {
        if ((attributes.inlinePresentationIntent & bit) != 0)
            names += (names.empty() ? "" : " ") + std::string(name);
    }
    if (!attributes.link.isEmpty())
        names += (names.empty() ? "link=" : " link=") + attributes.link.toStdString();
    return "[" + names + "]";
}

} // namespace

std::string notation(const AttributedString& string)
{
    std::string whole;
    for (const Run& run : string.runs)
        whole += attributeNotation(run.attributes) + string.textOf(run).toUtf8().toStdString();
    return whole;
}

} // namespace sablequill::test
