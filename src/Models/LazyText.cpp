// SPDX-License-Identifier: MIT
#include "LazyText.h"

#include "Text.h"

#include <utility>

namespace sablequill {

LazyText::LazyText(const QString& text)
    : shared(text.isEmpty() ? nullptr : std::make_shared<State>(State{text}))
{
}

LazyText::LazyText(std::string_view utf8, std::shared_ptr<const void> buffer)
    : shared(utf8.empty() ? nullptr : std::make_shared<State>(State{{}, utf8, std::move(buffer)}))
{
}

const QString& LazyText::text() const
{
    static const QString empty;
    if (!shared)
        return empty;
    if (shared->buffer) {
        shared->decoded = Text::fromUtf8(shared->utf8);
        shared->buffer.reset();
    }
    return shared->decoded;
}

} // namespace sablequill
