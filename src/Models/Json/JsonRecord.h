// SPDX-License-Identifier: MIT
#pragma once

#include "JsonCodec.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>

namespace sablequill::json {

/// A key and the member that it holds.
template <typename Record, typename Member> struct Field {
    constexpr Field(std::string_view key, Member Record::*member)
        : key(key)
        , member(member)
    {
    }

    std::string_view key;
    Member Record::*member;
};

template <typename T> struct IsOptional : std::false_type {
};
template <typename T> struct IsOptional<std::optional<T>> : std::true_type {
};

/// Reads and writes a record as an object whose keys are those of the table `fields` of the derived
/// codec. Reading starts from `blank()`, which the derived codec may replace.
///
/// Every key is required, except those of optional members, which may be missing or null and are
/// not written when absent. Unknown keys are ignored. Of two equal keys the later one counts.
template <typename Derived, typename Record> struct RecordCodec {
    static Record blank() { return {}; }

    static Decoded<Record> read(Element element)
    {
        simdjson::dom::object object;
        if (element.get(object) != simdjson::SUCCESS)
            return Refusal{QStringLiteral("not an object")};
        Record record = Derived::blank();
        std::optional<Refusal> refusal;
        eachField([&, members = membersOf(object)](const auto& field, std::size_t index) {
            if (!refusal)
                refusal = readField(record, field, members[index], element.document);
        });
        if (refusal)
            return *std::move(refusal);
        return record;
    }

    static QJsonObject write(const Record& record)
    {
        QJsonObject object;
        eachField([&](const auto& field, std::size_t) { writeField(object, field, record); });
        return object;
    }

private:
    static constexpr std::size_t count() { return std::tuple_size_v<decltype(Derived::fields)>; }

    template <typename Visit> static void eachField(Visit visit)
    {
        std::apply(
            [&](const auto&... field) {
                std::size_t index = 0;
                (visit(field, index++), ...);
            },
            Derived::fields);
    }

    /// The object's members in the order of the table.
    static auto membersOf(simdjson::dom::object object)
    {
        std::array<std::optional<simdjson::dom::element>, count()> members;
        for (const auto& [key, member] : object) {
            eachField([&, &key = key, &member = member](const auto& field, std::size_t index) {
                if (field.key == key)
                    members[index] = member;
            });
        }
        return members;
    }

    template <typename Member>
    static std::optional<Refusal> readField(Record& record, const Field<Record, Member>& field,
        std::optional<simdjson::dom::element> element, const Document& document)
    {
        if constexpr (IsOptional<Member>::value) {
            if (!element || element->is_null())
                return {};
            return assign<typename Member::value_type>(record, field, {*element, document});
        } else {
            if (!element)
                return Refusal{QStringLiteral("missing")}.within(Text::fromUtf8(field.key));
            return assign<Member>(record, field, {*element, document});
        }
    }

    template <typename Value, typename Member>
    static std::optional<Refusal> assign(
        Record& record, const Field<Record, Member>& field, Element element)
    {
        auto value = Codec<Value>::read(element);
        if (!value)
            return value.refusal().within(Text::fromUtf8(field.key));
        record.*field.member = std::move(*value);
        return {};
    }

    template <typename Member>
    static void writeField(
        QJsonObject& object, const Field<Record, Member>& field, const Record& record)
    {
        const Member& member = record.*field.member;
        if constexpr (IsOptional<Member>::value) {
            if (member)
                object.insert(
                    Text::fromUtf8(field.key), Codec<typename Member::value_type>::write(*member));
        } else {
            object.insert(Text::fromUtf8(field.key), Codec<Member>::write(member));
        }
    }
};

} // namespace sablequill::json
