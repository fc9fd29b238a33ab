// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCenter.h"

#include <QDBusArgument>
#include <QList>
#include <QString>

#include <optional>

namespace sablequill {

/// A shortcut as the program proposes it to the portal, D-Bus type (sa{sv}).
struct PortalShortcut {
    /// Names the shortcut for ever: the desktop keeps the user's choice of keys under it.
    QString id;
    /// What the user reads in the desktop's settings.
    QString description;
    /// As portalTrigger() gives it; empty when there is none to propose.
    QString trigger;

    bool operator==(const PortalShortcut&) const = default;
};

/// D-Bus type a(sa{sv}).
using PortalShortcuts = QList<PortalShortcut>;

/// The shortcut of the action that has the hot key; nothing when none has. Key and modifiers as in
/// HotKeyCenter.
std::optional<PortalShortcut> portalShortcut(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id);

/// Tells the bus how to send the type above. Called before any is sent.
void registerPortalShortcutTypes();

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut);
const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut);

} // namespace sablequill
