// SPDX-License-Identifier: MIT
#pragma once

#include "Rect.h"

#include <QIcon>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace sablequill {

/// What is known of where the user activated the item: its icon's rectangle, or the place of the
/// click as a rectangle without extent. Points, bottom-left origin; nothing when the host tells
/// neither.
using StatusItemAnchor = std::optional<Rect>;

/// An entry of the small menu for hosts that show nothing but menus.
struct StatusMenuEntry {
    QString title;
    std::function<void()> action;
};

/// What a status item is made from.
struct StatusItemDescription {
    QString title;
    /// Draws itself in every size that a status area asks for, and stands out from light and dark
    /// ones alike.
    QIcon icon;
    std::function<void(const StatusItemAnchor& anchor)> onActivated;
    std::vector<StatusMenuEntry> menu;
};

/// The program's icon in the desktop's status area, wherever and whenever there is one.
class StatusItem {
public:
    /// Shows the item from here on, also in hosts that appear later; called once.
    virtual void show(StatusItemDescription description) = 0;
    /// Where the icon stands at the moment, as far as the host tells.
    virtual StatusItemAnchor anchor() const = 0;

protected:
    ~StatusItem() = default;
};

} // namespace sablequill
