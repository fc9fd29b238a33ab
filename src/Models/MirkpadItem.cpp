// SPDX-License-Identifier: MIT
#include "MirkpadItem.h"

#include "RecordCodecs.h"
#include "Text.h"

#include <QHashFunctions>

namespace sablequill {
namespace {

constexpr int previewLength = 80;
/// Units in which that many characters usually fit.
constexpr qsizetype previewWindow = 1280;

/// Looks at the start of a long text only, as far as the preview needs.
QString onOneLine(QStringView text)
{
    for (qsizetype window = previewWindow;; window *= 8) {
        const bool isWhole = window >= text.size();
        QString line = text.first(isWhole ? text.size() : window).toString();
        line.replace(u'\n', u' ');
        const QStringView prefix = Text::graphemePrefix(line, previewLength);
        // The code point after a boundary decides on it, and has at most two units.
        if (isWhole || prefix.size() + 2 <= line.size())
            return prefix.toString();
    }
}

} // namespace

QString MirkpadItem::preview() const
{
    const QStringView trimmed = Text::trimmedWhitespaceAndNewlines(content.text());
    if (trimmed.isEmpty())
        return QStringLiteral("Empty note");
    return onOneLine(trimmed);
}

Decoded<std::vector<MirkpadItem>> decodeNotes(QByteArrayView json, qsizetype readableBehind)
{
    return json::decode<std::vector<MirkpadItem>>(json, readableBehind);
}

} // namespace sablequill

std::size_t std::hash<sablequill::MirkpadItem>::operator()(
    const sablequill::MirkpadItem& item) const noexcept
{
    return qHashMulti(0, item.id, item.title, item.content.text(),
        item.createdAt.time_since_epoch().count(), item.updatedAt.time_since_epoch().count());
}
