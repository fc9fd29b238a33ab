// SPDX-License-Identifier: MIT
#include "NotesEncoder.h"

#include "RecordCodecs.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <iterator>

namespace sablequill {
namespace {

constexpr QByteArrayView listStart = "[\n";
constexpr QByteArrayView separator = ",\n";
constexpr QByteArrayView listEnd = "\n]\n";

/// A note's bytes as they stand inside the list, indented, without what comes before and after.
QByteArray encodeOne(const MirkpadItem& note)
{
    const QJsonArray list{json::Codec<MirkpadItem>::write(note)};
    const QByteArray bytes = QJsonDocument(list).toJson(QJsonDocument::Indented);
    return bytes.sliced(listStart.size(), bytes.size() - listStart.size() - listEnd.size());
}

bool isSameNote(const MirkpadItem& one, const MirkpadItem& other)
{
    return one.id == other.id && one.updatedAt == other.updatedAt
        && one.createdAt == other.createdAt && one.title == other.title
        && one.content == other.content;
}

} // namespace

std::span<const QByteArrayView> NotesEncoder::encode(const std::vector<MirkpadItem>& notes)
{
    update(notes);
    pieces.clear();
    pieces.reserve(2 * entries.size() + 2);
    pieces.push_back(listStart);
    for (const Entry& entry : entries) {
        if (pieces.size() > 1)
            pieces.push_back(separator);
        pieces.emplace_back(entry.bytes);
    }
    pieces.push_back(entries.empty() ? listEnd.sliced(1) : listEnd);
    return pieces;
}

/// Keeps the entries at the start and at the end of the list that stand for the same notes, and
/// makes those between them anew. An edit, an insertion and a removal each change one place.
void NotesEncoder::update(const std::vector<MirkpadItem>& notes)
{
    const auto isSame = [](const Entry& entry, const MirkpadItem& note) {
        return isSameNote(entry.note, note);
    };
    const auto [firstOld, firstNew] =
        std::mismatch(entries.begin(), entries.end(), notes.begin(), notes.end(), isSame);
    const auto [lastOld, lastNew] =
        std::mismatch(entries.rbegin(), std::make_reverse_iterator(firstOld), notes.rbegin(),
            std::make_reverse_iterator(firstNew), isSame);

    std::vector<Entry> changed;
    std::transform(
        firstNew, lastNew.base(), std::back_inserter(changed), [](const MirkpadItem& note) {
            return Entry{note, encodeOne(note)};
        });
    const auto position = entries.erase(firstOld, lastOld.base());
    entries.insert(
        position, std::move_iterator(changed.begin()), std::move_iterator(changed.end()));
}

} // namespace sablequill
