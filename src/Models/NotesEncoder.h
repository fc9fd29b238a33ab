// SPDX-License-Identifier: MIT
#pragma once

#include "MirkpadItem.h"

#include <QByteArray>
#include <QByteArrayView>

#include <span>
#include <vector>

namespace sablequill {

/// Writes lists of notes as notes.json: indented, keys sorted. Remembers the bytes of the last
/// list's notes, so that the next list costs no more than what changed in it.
class NotesEncoder {
public:
    /// The file's bytes in pieces, valid until the next call. decodeNotes() reads them, whatever
    /// the notes hold.
    std::span<const QByteArrayView> encode(const std::vector<MirkpadItem>& notes);

private:
    struct Entry {
        MirkpadItem note;
        QByteArray bytes;
    };

    void update(const std::vector<MirkpadItem>& notes);

    std::vector<Entry> entries;
    std::vector<QByteArrayView> pieces;
};

} // namespace sablequill
