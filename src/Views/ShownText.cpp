// SPDX-License-Identifier: MIT
#include "ShownText.h"

#include <algorithm>

namespace sablequill {
namespace {

/// How far past its limit a block may go to keep a base character and its marks together.
constexpr qsizetype slack = 64;

bool isPairAt(QStringView text, qsizetype at)
{
    return text.at(at) == u'\r' && at + 1 < text.size() && text.at(at + 1) == u'\n';
}

/// Where the next CR LF begins; -1 when there is none. Looks for the CR alone, which is ten times
/// as quick as to look for both: each key that is typed asks for the pairs of the whole text.
qsizetype indexOfPair(QStringView text, qsizetype from = 0)
{
    qsizetype at = text.indexOf(u'\r', from);
    while (at >= 0 && !isPairAt(text, at))
        at = text.indexOf(u'\r', at + 1);
    return at;
}

qsizetype pairsIn(QStringView text)
{
    qsizetype count = 0;
    for (qsizetype at = indexOfPair(text); at >= 0; at = indexOfPair(text, at + 2))
        ++count;
    return count;
}

/// The length of the shortest beginning of a text, free of soft breaks, that is shown in so many
/// units.
qsizetype unitsShownBy(QStringView text, qsizetype shown)
{
    qsizetype end = shown;
    for (qsizetype at = indexOfPair(text); at >= 0 && at < end; at = indexOfPair(text, at + 2))
        ++end;
    return end;
}

QChar shownCharacter(QChar character)
{
    if (isBlockBreak(character))
        return QChar::ParagraphSeparator;
    if (character.isNull() || character == QChar::ObjectReplacementCharacter)
        return QChar::ReplacementCharacter;
    return character;
}

/// Whether a block that has grown to a length ends before `next`, which follows `previous`.
bool isCutBetween(QChar previous, QChar next, qsizetype length)
{
    if (length < ShownText::longestBlock * 7 / 8 || next.isLowSurrogate())
        return false;
    if (length < ShownText::longestBlock)
        return previous.isSpace() && !next.isSpace();
    constexpr char16_t zeroWidthJoiner = 0x200D;
    const bool isJoined = next.isMark() || next == zeroWidthJoiner || previous == zeroWidthJoiner;
    return !isJoined || length >= ShownText::longestBlock + slack;
}

} // namespace

bool isBlockBreak(QChar character)
{
    constexpr char16_t beginningOfFrame = 0xFDD0;
    constexpr char16_t endOfFrame = 0xFDD1;
    return character == u'\n' || character == u'\r' || character == QChar::ParagraphSeparator
        || character == beginningOfFrame || character == endOfFrame;
}

bool ShownText::hasManyLines(QStringView text)
{
    return std::count_if(text.begin(), text.end(), isBlockBreak) > mostBlocks;
}

QString ShownText::append(QStringView part)
{
    // The second half of a CR LF that two parts share has been shown with its first.
    const bool isHalfShown = content.endsWith(u'\r') && part.startsWith(u'\n');
    const qsizetype offset = content.size() + (isHalfShown ? 1 : 0);
    content += part;
    return cut(part.mid(isHalfShown ? 1 : 0), offset, lastBlockLength, softBreaks);
}

QString ShownText::cut(QStringView part, qsizetype offset, qsizetype& blockLength,
    std::vector<qsizetype>& breaks) const
{
    QString shown;
    shown.reserve(part.size());
    for (qsizetype at = 0; at < part.size(); ++at) {
        const QChar character = part.at(at);
        const bool isBreak = isBlockBreak(character);
        const QChar previous = shown.isEmpty() ? QChar() : shown.back();
        if (!isBreak && isCutBetween(previous, character, blockLength)) {
            shown += QChar::ParagraphSeparator;
            breaks.push_back(offset + at);
            blockLength = 0;
        }
        const bool isInBlock = !isBreak || (isDense && blockLength < longestBlock);
        blockLength = isInBlock ? blockLength + 1 : 0;
        shown += isBreak && isInBlock ? QChar(QChar::LineSeparator) : shownCharacter(character);
        if (isPairAt(part, at))
            ++at;
    }
    return shown;
}

qsizetype ShownText::blockLengthBefore(qsizetype textPosition) const
{
    const auto last = std::upper_bound(softBreaks.begin(), softBreaks.end(), textPosition);
    const qsizetype cutAt = last == softBreaks.begin() ? 0 : *std::prev(last);
    const qsizetype earliest = std::max(cutAt, textPosition - longestBlock);
    qsizetype start = textPosition;
    while (start > earliest && !isBlockBreak(content.at(start - 1)))
        --start;
    return textPosition - start;
}

qsizetype ShownText::shownLength() const
{
    return content.size() - pairsIn(content) + static_cast<qsizetype>(softBreaks.size());
}

ShownText::Place ShownText::place(qsizetype shown) const
{
    const QStringView all(content);
    Place here;
    for (const qsizetype cutAt : softBreaks) {
        const QStringView between = all.mid(here.text, cutAt - here.text);
        const qsizetype length = between.size() - pairsIn(between);
        if (shown <= length)
            break;
        shown -= length + 1;
        here = {cutAt, here.softBreaks + 1};
    }
    here.text = std::min(here.text + unitsShownBy(all.mid(here.text), shown), content.size());
    return here;
}

qsizetype ShownText::shownPosition(Place place) const
{
    return place.text - pairsIn(QStringView(content).left(place.text)) + place.softBreaks;
}

qsizetype ShownText::shownPosition(qsizetype textPosition) const
{
    const auto before = std::lower_bound(softBreaks.begin(), softBreaks.end(), textPosition);
    return shownPosition({textPosition, before - softBreaks.begin()});
}

bool ShownText::isSoftBreak(qsizetype shown) const
{
    return shown >= 0 && place(shown + 1).softBreaks > place(shown).softBreaks;
}

QString ShownText::textBetween(qsizetype shownStart, qsizetype shownEnd) const
{
    const qsizetype start = place(shownStart).text;
    return content.mid(start, place(shownEnd).text - start);
}

QString ShownText::shownBetween(qsizetype shownStart, qsizetype shownEnd) const
{
    const Place start = place(shownStart);
    const Place end = place(shownEnd);
    QString shown;
    shown.reserve(shownEnd - shownStart);
    qsizetype nextBreak = start.softBreaks;
    for (qsizetype at = start.text; at <= end.text; ++at) {
        for (; nextBreak < end.softBreaks && softBreaks[static_cast<std::size_t>(nextBreak)] == at;
             ++nextBreak)
            shown += QChar::ParagraphSeparator;
        if (at == end.text)
            break;
        shown += shownCharacter(content.at(at));
        if (isPairAt(content, at))
            ++at;
    }
    return shown;
}

} // namespace sablequill
