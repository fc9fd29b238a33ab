// SPDX-License-Identifier: MIT
#include "JsonCodec.h"

#include "Text.h"

#include <QByteArrayView>

#include <algorithm>
#include <cctype>
#include <limits>

namespace sablequill::json {
namespace {

Decoded<std::string_view> readText(Element element)
{
    std::string_view text;
    if (element.get(text) != simdjson::SUCCESS)
        return Refusal{QStringLiteral("not a string")};
    return text;
}

/// QUuid reads more forms than this one, and one value of it means both "zero" and "unreadable".
bool isCanonicalUuid(std::string_view text)
{
    constexpr std::string_view form = "00000000-0000-0000-0000-000000000000";
    return std::equal(text.begin(), text.end(), form.begin(), form.end(), [](char c, char model) {
        return model == '-' ? c == '-' : std::isxdigit(static_cast<unsigned char>(c)) != 0;
    });
}

QByteArrayView view(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

} // namespace

Decoded<bool> Codec<bool>::read(Element element)
{
    bool value = false;
    if (element.get(value) != simdjson::SUCCESS)
        return Refusal{QStringLiteral("not a boolean")};
    return value;
}

Decoded<double> Codec<double>::read(Element element)
{
    double value = 0;
    if (element.get(value) != simdjson::SUCCESS)
        return Refusal{QStringLiteral("not a number")};
    return value;
}

Decoded<std::uint32_t> Codec<std::uint32_t>::read(Element element)
{
    const auto number = Codec<double>::read(element);
    if (!number)
        return number.refusal();
    // Every integer in range is exact as a double, and no integer out of range rounds into it.
    if (*number < 0 || *number > std::numeric_limits<std::uint32_t>::max())
        return Refusal{QStringLiteral("out of range")};
    const auto value = static_cast<std::uint32_t>(*number);
    if (static_cast<double>(value) != *number)
        return Refusal{QStringLiteral("not an integer")};
    return value;
}

Decoded<QString> Codec<QString>::read(Element element)
{
    const auto text = readText(element);
    if (!text)
        return text.refusal();
    return Text::fromUtf8(*text);
}

QJsonValue Codec<QString>::write(const QString& value)
{
    return Text::wellFormed(value);
}

Decoded<LazyText> Codec<LazyText>::read(Element element)
{
    const auto text = readText(element);
    if (!text)
        return text.refusal();
    return LazyText(*text, element.document);
}

QJsonValue Codec<LazyText>::write(const LazyText& value)
{
    return Text::wellFormed(value);
}

Decoded<QUuid> Codec<QUuid>::read(Element element)
{
    const auto text = readText(element);
    if (!text)
        return text.refusal();
    if (!isCanonicalUuid(*text))
        return Refusal{QStringLiteral("not a UUID")};
    return QUuid::fromString(QLatin1StringView(view(*text)));
}

QJsonValue Codec<QUuid>::write(const QUuid& value)
{
    return value.toString(QUuid::WithoutBraces).toUpper();
}

Decoded<Timestamp> Codec<Timestamp>::read(Element element)
{
    const auto text = readText(element);
    if (!text)
        return text.refusal();
    const auto time = parseTimestamp(view(*text));
    if (!time)
        return Refusal{QStringLiteral("not a time")};
    return *time;
}

QJsonValue Codec<Timestamp>::write(Timestamp value)
{
    return QString::fromLatin1(formatTimestamp(value));
}

} // namespace sablequill::json
