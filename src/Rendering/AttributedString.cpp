// SPDX-License-Identifier: MIT
#include "AttributedString.h"

#include <utility>

namespace sablequill {

void AttributedString::append(QString text, const RunAttributes& attributes)
{
    if (text.isEmpty())
        return;
    if (!runs.empty() && runs.back().attributes == attributes)
        runs.back().text += text;
    else
        runs.push_back({std::move(text), attributes});
}

void AttributedString::append(const AttributedString& other)
{
    for (const Run& run : other.runs)
        append(run.text, run.attributes);
}

QString AttributedString::text() const
{
    QString whole;
    for (const Run& run : runs)
        whole += run.text;
    return whole;
}

} // namespace sablequill
