// SPDX-License-Identifier: MIT
#include "AttributedString.h"

namespace sablequill {

void appendRun(Runs& runs, const Run& run)
{
    if (run.length == 0)
        return;
    if (!runs.empty() && runs.back().attributes == run.attributes)
        runs.back().length += run.length;
    else
        runs.push_back(run);
}

void AttributedString::append(QStringView part, const RunAttributes& attributes)
{
    appendRun(runs, {text.size(), part.size(), attributes});
    text += part;
}

void AttributedString::append(const AttributedString& other)
{
    for (const Run& run : other.runs)
        append(other.textOf(run), run.attributes);
}

QStringView AttributedString::textOf(const Run& run) const
{
    return QStringView(text).sliced(run.start, run.length);
}

} // namespace sablequill
