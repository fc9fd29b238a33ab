// SPDX-License-Identifier: MIT
#include "StatusNotifierItem.h"

namespace sablequill {

QString StatusNotifierItem::path()
{
    return QStringLiteral("/StatusNotifierItem");
}

StatusNotifierItem::StatusNotifierItem(const QString& title, const QIcon& icon, const QString& menu)
    : itemTitle(title)
    , itemIcon(icon)
    , itemMenu(menu)
{
    registerStatusNotifierTypes();
}

void StatusNotifierItem::exportOn(QDBusConnection bus)
{
    bus.registerObject(path(), this, QDBusConnection::ExportScriptableContents);
}

QString StatusNotifierItem::category() const
{
    return QStringLiteral("ApplicationStatus");
}

QString StatusNotifierItem::status() const
{
    return QStringLiteral("Active");
}

void StatusNotifierItem::Activate(int x, int y)
{
    Q_EMIT activated({x, y});
}

// Some hosts keep the single click for the menu; any other click then still has an effect.
void StatusNotifierItem::SecondaryActivate(int x, int y)
{
    Q_EMIT activated({x, y});
}

void StatusNotifierItem::ContextMenu(int x, int y)
{
    Q_EMIT activated({x, y});
}

void StatusNotifierItem::Scroll(int, const QString&) { }

} // namespace sablequill
