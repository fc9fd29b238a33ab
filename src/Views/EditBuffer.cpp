// SPDX-License-Identifier: MIT
#include "EditBuffer.h"

#include <algorithm>

namespace sablequill {
namespace {

/// A line may end in a block or in a block's line; which of the two says nothing of the text.
bool isShownAlike(QChar before, QChar after)
{
    return before == after
        || (before == QChar::ParagraphSeparator && after == QChar::LineSeparator);
}

qsizetype commonStart(QStringView before, QStringView after)
{
    const auto ends =
        std::mismatch(before.begin(), before.end(), after.begin(), after.end(), isShownAlike);
    return ends.first - before.begin();
}

qsizetype commonEnd(QStringView before, QStringView after)
{
    const auto ends =
        std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend(), isShownAlike);
    return ends.first - before.rbegin();
}

/// The text for characters that were typed into a document.
QString typedText(QStringView added)
{
    QString text = added.toString();
    std::replace_if(text.begin(), text.end(), isBlockBreak, QChar(u'\n'));
    return text;
}

} // namespace

// By value: the text may be the buffer's own.
QString EditBuffer::setText(QString text) // NOLINT(performance-unnecessary-value-param)
{
    static_cast<ShownText&>(*this) = ShownText(hasManyLines(text));
    return append(text);
}

std::optional<TextEdit> EditBuffer::shownChanged(
    qsizetype position, qsizetype removed, QStringView added)
{
    // A document reports more than what changed, so the same characters come back.
    const QString before = shownBetween(position, position + removed);
    const qsizetype start = commonStart(before, added);
    const qsizetype end = commonEnd(QStringView(before).mid(start), added.mid(start));
    const Place from = place(position + start);
    const Place to = place(position + before.size() - end);
    const TextEdit edit = joined({from.text, content.mid(from.text, to.text - from.text),
        typedText(added.mid(start, added.size() - start - end))});
    splice(edit, {from.softBreaks, to.softBreaks - from.softBreaks}, {});
    if (edit.removed == edit.inserted)
        return std::nullopt;
    return edit;
}

ShownEdit EditBuffer::apply(const TextEdit& edit)
{
    isDense = isDense || hasManyLines(edit.inserted);
    const qsizetype end = edit.position + edit.removed.size();
    const auto first = std::upper_bound(softBreaks.begin(), softBreaks.end(), edit.position);
    // Two soft breaks that would come to stand side by side become one.
    const bool isAfterBreak = first != softBreaks.begin() && *std::prev(first) == edit.position;
    const auto last = isAfterBreak ? std::upper_bound(first, softBreaks.end(), end)
                                   : std::lower_bound(first, softBreaks.end(), end);
    const Range replaced{first - softBreaks.begin(), last - first};

    ShownEdit shown;
    shown.position = shownPosition({edit.position, replaced.position});
    shown.removed = shownPosition({end, replaced.position + replaced.length}) - shown.position;
    qsizetype blockLength = blockLengthBefore(edit.position);
    std::vector<qsizetype> breaks;
    shown.inserted = cut(edit.inserted, edit.position, blockLength, breaks);
    splice(edit, replaced, breaks);
    return shown;
}

TextEdit EditBuffer::replacement(
    qsizetype shownStart, qsizetype shownEnd, const QString& text) const
{
    QString inserted = text;
    inserted.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    inserted.replace(u'\r', u'\n');
    return joined({place(shownStart).text, textBetween(shownStart, shownEnd), inserted});
}

TextEdit EditBuffer::joined(TextEdit edit) const
{
    const qsizetype end = edit.position + edit.removed.size();
    const QChar previous = edit.position > 0 ? content.at(edit.position - 1) : QChar();
    const QChar following = end < content.size() ? content.at(end) : QChar();
    const QChar next = edit.inserted.isEmpty() ? following : edit.inserted.front();
    const bool isChanged = edit.removed != edit.inserted;
    if (isChanged && previous == u'\r' && next == u'\n') {
        --edit.position;
        edit.removed.prepend(u'\r');
        edit.inserted.prepend(u'\n');
    }
    return edit;
}

void EditBuffer::splice(
    const TextEdit& edit, Range replacedBreaks, const std::vector<qsizetype>& breaks)
{
    content.replace(edit.position, edit.removed.size(), edit.inserted);
    const auto first = softBreaks.begin() + replacedBreaks.position;
    const auto next = softBreaks.erase(first, first + replacedBreaks.length);
    const qsizetype growth = edit.inserted.size() - edit.removed.size();
    std::for_each(next, softBreaks.end(), [&](qsizetype& place) { place += growth; });
    softBreaks.insert(next, breaks.begin(), breaks.end());
}

} // namespace sablequill
