// SPDX-License-Identifier: MIT
#include "Text.h"

#include <QByteArrayView>
#include <QStringDecoder>
#include <QtGlobal>

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/utext.h>

#include <algorithm>
#include <memory>

namespace sablequill::Text {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

std::unique_ptr<icu::BreakIterator> makeCharacterIterator()
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::BreakIterator> iterator{
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status)};
    if (U_FAILURE(status))
        qFatal("The ICU installation has no character break rules: %s", u_errorName(status));
    return iterator;
}

/// Points the iterator at the text without copying it; the text outlives the iteration.
void setText(icu::BreakIterator& iterator, QStringView text)
{
    UErrorCode status = U_ZERO_ERROR;
    UText source = UTEXT_INITIALIZER;
    utext_openUChars(&source, text.utf16(), text.size(), &status);
    iterator.setText(&source, status);
    utext_close(&source);
}

template <typename Predicate> QStringView trimmed(QStringView text, Predicate isTrimmed)
{
    const auto begin = std::find_if_not(text.begin(), text.end(), isTrimmed);
    const auto end = std::find_if_not(
        std::make_reverse_iterator(text.end()), std::make_reverse_iterator(begin), isTrimmed)
                         .base();
    return QStringView(begin, end);
}

} // namespace

bool isNewline(QChar character)
{
    const char16_t unit = character.unicode();
    return (unit >= u'\u000A' && unit <= u'\u000D') || unit == u'\u0085' || unit == u'\u2028'
        || unit == u'\u2029';
}

bool isWhitespace(QChar character)
{
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

QStringView graphemePrefix(QStringView text, int count)
{
    if (count <= 0)
        return text.first(0);
    // Making an iterator costs more than a short text does.
    thread_local const auto iterator = makeCharacterIterator();
    setText(*iterator, text);
    const auto end = iterator->next(count);
    return end == icu::BreakIterator::DONE ? text : text.first(end);
}

QStringView trimmedWhitespaceAndNewlines(QStringView text)
{
    return trimmed(text, [](QChar unit) { return isWhitespace(unit) || isNewline(unit); });
}

QStringView trimmedWhitespace(QStringView text)
{
    return trimmed(text, isWhitespace);
}

std::optional<QStringView> LineReader::next()
{
    if (!rest)
        return {};
    const auto newline = std::find_if(rest->begin(), rest->end(), isNewline);
    const QStringView line(rest->begin(), newline);
    if (newline == rest->end())
        rest.reset();
    else
        rest = QStringView(newline + 1, rest->end());
    return line;
}

std::vector<QStringView> splitAtNewlines(QStringView text)
{
    std::vector<QStringView> lines;
    LineReader reader(text);
    while (const auto line = reader.next())
        lines.push_back(*line);
    return lines;
}

QString fromUtf8(std::string_view utf8)
{
    const QByteArrayView bytes(utf8.data(), static_cast<qsizetype>(utf8.size()));
    if (!utf8.starts_with(byteOrderMark))
        return QString::fromUtf8(bytes);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(bytes);
}

QString wellFormed(const QString& text)
{
    if (text.isValidUtf16())
        return text;
    QString mended = text;
    for (qsizetype i = 0; i < mended.size(); ++i) {
        if (!mended.at(i).isSurrogate())
            continue;
        const bool isPair = mended.at(i).isHighSurrogate() && i + 1 < mended.size()
            && mended.at(i + 1).isLowSurrogate();
        if (isPair)
            ++i;
        else
            mended[i] = QChar::ReplacementCharacter;
    }
    return mended;
}

} // namespace sablequill::Text
