// SPDX-License-Identifier: MIT
#include "PortalShortcut.h"

#include "HotkeyAction.h"
#include "PortalTrigger.h"

#include <QDBusMetaType>
#include <QVariantMap>

namespace sablequill {
namespace {

const QString descriptionKey = QStringLiteral("description");
const QString triggerKey = QStringLiteral("preferred_trigger");

} // namespace

std::optional<PortalShortcut> portalShortcut(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id)
{
    for (const HotkeyAction action : allHotkeyActions) {
        if (static_cast<std::uint32_t>(hotkeyID(action)) == id.id)
            return PortalShortcut{
                rawValue(action), displayName(action), portalTrigger(keyCode, modifiers)};
    }
    return std::nullopt;
}

void registerPortalShortcutTypes()
{
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<PortalShortcuts>();
}

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut)
{
    QVariantMap properties{{descriptionKey, shortcut.description}};
    if (!shortcut.trigger.isEmpty())
        properties.insert(triggerKey, shortcut.trigger);
    argument.beginStructure();
    argument << shortcut.id << properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut)
{
    QVariantMap properties;
    argument.beginStructure();
    argument >> shortcut.id >> properties;
    argument.endStructure();
    shortcut.description = properties.value(descriptionKey).toString();
    shortcut.trigger = properties.value(triggerKey).toString();
    return argument;
}

} // namespace sablequill
