// SPDX-License-Identifier: MIT
#pragma once

#include "Timestamp.h"

#include <QString>
#include <QUuid>

#include <cstddef>
#include <functional>

namespace sablequill {

/// One note. A value: copied, never shared.
struct MirkpadItem {
    QUuid id = QUuid::createUuid();
    QString title = QStringLiteral("Untitled");
    QString content = {};
    Timestamp createdAt = currentTime();
    Timestamp updatedAt = currentTime();

    /// One line for lists: at most 80 grapheme clusters of the content, or "Empty note".
    QString preview() const;

    bool operator==(const MirkpadItem&) const = default;
};

} // namespace sablequill

template <> struct std::hash<sablequill::MirkpadItem> {
    std::size_t operator()(const sablequill::MirkpadItem& item) const noexcept;
};
