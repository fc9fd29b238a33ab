// SPDX-License-Identifier: MIT
#pragma once

#include "Decoded.h"
#include "LargePages.h"
#include "LazyText.h"
#include "Text.h"
#include "Timestamp.h"

#include <QByteArrayView>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QUuid>

#include <simdjson.h>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

/// How values of each type are read from JSON and written to it. Only the sources of this layer see
/// this header.
namespace sablequill::json {

/// What the parser makes of a text; all strings of the text live in it.
using Document = std::shared_ptr<const simdjson::dom::document>;

struct Element : simdjson::dom::element {
    Element(simdjson::dom::element value, const Document& document)
        : simdjson::dom::element(value)
        , document(document)
    {
    }

    const Document& document;
};

/// `read` refuses a value of another type; `write` never fails. The key is a property of the record
/// that holds the value, not of the value.
template <typename T> struct Codec;

template <> struct Codec<bool> {
    static Decoded<bool> read(Element element);
    static QJsonValue write(bool value) { return value; }
};

/// Any JSON number that is a 64-bit integer or a finite double; the parser refuses a text with
/// others. The value written is finite, or null is written.
template <> struct Codec<double> {
    static Decoded<double> read(Element element);
    static QJsonValue write(double value) { return value; }
};

/// An integer from 0 to 4294967295; 5.0 is one.
template <> struct Codec<std::uint32_t> {
    static Decoded<std::uint32_t> read(Element element);
    static QJsonValue write(std::uint32_t value) { return static_cast<qint64>(value); }
};

/// Well-formed Unicode on both sides.
template <> struct Codec<QString> {
    static Decoded<QString> read(Element element);
    static QJsonValue write(const QString& value);
};

/// The same, and the document lives as long as a text that nobody has asked for.
template <> struct Codec<LazyText> {
    static Decoded<LazyText> read(Element element);
    static QJsonValue write(const LazyText& value);
};

/// 8-4-4-4-12 hexadecimal digits without braces, read in either case, written in upper case.
template <> struct Codec<QUuid> {
    static Decoded<QUuid> read(Element element);
    static QJsonValue write(const QUuid& value);
};

template <> struct Codec<Timestamp> {
    static Decoded<Timestamp> read(Element element);
    static QJsonValue write(Timestamp value);
};

template <typename T> struct Codec<std::vector<T>> {
    static Decoded<std::vector<T>> read(Element element)
    {
        simdjson::dom::array array;
        if (element.get(array) != simdjson::SUCCESS)
            return Refusal{QStringLiteral("not an array")};
        std::vector<T> values;
        values.reserve(array.size());
        for (const simdjson::dom::element item : array) {
            auto value = Codec<T>::read({item, element.document});
            if (!value)
                return value.refusal().within(QString::number(values.size()));
            values.push_back(std::move(*value));
        }
        return values;
    }
};

/// Of two equal keys the later one counts.
template <typename T> struct Codec<std::map<QString, T>> {
    static Decoded<std::map<QString, T>> read(Element element)
    {
        simdjson::dom::object object;
        if (element.get(object) != simdjson::SUCCESS)
            return Refusal{QStringLiteral("not an object")};
        std::map<QString, simdjson::dom::element> members;
        for (const auto& [key, member] : object)
            members.insert_or_assign(Text::fromUtf8(key), member);
        std::map<QString, T> values;
        for (const auto& [key, member] : members) {
            auto value = Codec<T>::read({member, element.document});
            if (!value)
                return value.refusal().within(key);
            values.emplace(key, std::move(*value));
        }
        return values;
    }

    static QJsonValue write(const std::map<QString, T>& values)
    {
        QJsonObject object;
        for (const auto& [key, value] : values)
            object.insert(key, Codec<T>::write(value));
        return object;
    }
};

/// The root of a JSON text, which may begin with a byte order mark, read as a T. No copy of the
/// text is made where so many bytes behind it may be read that the parser can look past its end.
template <typename T> Decoded<T> decode(QByteArrayView text, qsizetype readableBehind = 0)
{
    if (text.startsWith("\xEF\xBB\xBF"))
        text = text.sliced(3);
    const bool isPadded =
        !text.isEmpty() && readableBehind >= static_cast<qsizetype>(simdjson::SIMDJSON_PADDING);
    if (text.isEmpty())
        text = ""; // the parser copies from no null pointer
    const auto size = static_cast<std::size_t>(text.size());
    const auto document = std::make_shared<simdjson::dom::document>();
    if (document->allocate(size) == simdjson::SUCCESS)
        LargePages::use(document->string_buf.get(), size);
    simdjson::dom::parser parser;
    simdjson::dom::element root;
    const auto error =
        parser.parse_into_document(*document, text.data(), size, !isPadded).get(root);
    if (error != simdjson::SUCCESS)
        return Refusal{QString::fromLatin1(simdjson::error_message(error))};
    auto value = Codec<T>::read({root, document});
    // Texts of the value may keep the document, but only its strings.
    document->tape.reset();
    return value;
}

} // namespace sablequill::json
