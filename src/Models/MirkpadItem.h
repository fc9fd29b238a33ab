// SPDX-License-Identifier: MIT
#pragma once

#include "Decoded.h"
#include "LazyText.h"
#include "Timestamp.h"

#include <QByteArrayView>
#include <QString>
#include <QUuid>

#include <cstddef>
#include <functional>
#include <vector>

namespace sablequill {

/// One note. A value: copied, never shared.
struct MirkpadItem {
    QUuid id = QUuid::createUuid();
    QString title = QStringLiteral("Untitled");
    LazyText content = {};
    Timestamp createdAt = currentTime();
    Timestamp updatedAt = currentTime();

    /// One line for lists: at most 80 grapheme clusters of the content, or "Empty note".
    QString preview() const;

    bool operator==(const MirkpadItem&) const = default;
};

/// Reads notes.json whole: one record without one of its five keys, or with a value of another type
/// or form, refuses all of them. Unknown keys are ignored. It is quicker where some bytes behind
/// the text may be read as well.
Decoded<std::vector<MirkpadItem>> decodeNotes(QByteArrayView json, qsizetype readableBehind = 0);

} // namespace sablequill

template <> struct std::hash<sablequill::MirkpadItem> {
    std::size_t operator()(const sablequill::MirkpadItem& item) const noexcept;
};
