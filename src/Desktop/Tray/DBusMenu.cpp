// SPDX-License-Identifier: MIT
#include "DBusMenu.h"

#include <QGuiApplication>

#include <utility>

namespace sablequill {
namespace {

constexpr int menuId = 0;
constexpr uint revision = 1;

/// An underscore marks the next letter as the entry's access key.
QString escaped(QString title)
{
    return title.replace(u'_', QStringLiteral("__"));
}

} // namespace

QString DBusMenu::path()
{
    return QStringLiteral("/MenuBar");
}

DBusMenu::DBusMenu(std::vector<StatusMenuEntry> entries)
    : entries(std::move(entries))
{
    registerDBusMenuTypes();
}

void DBusMenu::exportOn(QDBusConnection bus)
{
    bus.registerObject(path(), this, QDBusConnection::ExportScriptableContents);
}

QString DBusMenu::textDirection() const
{
    return QGuiApplication::isRightToLeft() ? QStringLiteral("rtl") : QStringLiteral("ltr");
}

QString DBusMenu::status() const
{
    return QStringLiteral("normal");
}

bool DBusMenu::contains(int id) const
{
    return id >= menuId && std::cmp_less_equal(id, entries.size());
}

bool DBusMenu::check(int id)
{
    const bool isKnown = contains(id);
    if (!isKnown && calledFromDBus())
        sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("No such menu entry"));
    return isKnown;
}

QVariantMap DBusMenu::propertiesOf(int id, const QStringList& names) const
{
    const bool isMenu = id == menuId;
    const QString name = isMenu ? QStringLiteral("children-display") : QStringLiteral("label");
    if (!names.isEmpty() && !names.contains(name))
        return {};
    if (isMenu)
        return {{name, QStringLiteral("submenu")}};
    return {{name, escaped(entries[static_cast<std::size_t>(id - 1)].title)}};
}

uint DBusMenu::GetLayout(
    int parentId, int recursionDepth, const QStringList& propertyNames, DBusMenuLayout& layout)
{
    if (!check(parentId))
        return revision;
    layout = {parentId, propertiesOf(parentId, propertyNames), {}};
    if (parentId == menuId && recursionDepth != 0) {
        for (int id = 1; contains(id); ++id)
            layout.children.append({id, propertiesOf(id, propertyNames), {}});
    }
    return revision;
}

QList<DBusMenuItem> DBusMenu::GetGroupProperties(
    const QList<int>& ids, const QStringList& propertyNames)
{
    QList<DBusMenuItem> items;
    const auto append = [&](int id) { items.append({id, propertiesOf(id, propertyNames)}); };
    if (ids.isEmpty()) {
        for (int id = menuId; contains(id); ++id)
            append(id);
    }
    for (const int id : ids) {
        if (contains(id))
            append(id);
    }
    return items;
}

QDBusVariant DBusMenu::GetProperty(int id, const QString& name)
{
    if (!check(id))
        return {};
    const QVariantMap properties = propertiesOf(id, {});
    if (properties.contains(name))
        return QDBusVariant(properties[name]);
    sendErrorReply(QDBusError::InvalidArgs, QStringLiteral("No such property"));
    return {};
}

void DBusMenu::Event(int id, const QString& eventId, const QDBusVariant&, uint)
{
    if (check(id))
        handle(id, eventId);
}

QList<int> DBusMenu::EventGroup(const QList<DBusMenuEvent>& events)
{
    QList<int> unknown;
    for (const DBusMenuEvent& event : events) {
        if (contains(event.id))
            handle(event.id, event.name);
        else
            unknown.append(event.id);
    }
    // The interface asks for an error only where nothing could be done.
    if (!events.isEmpty() && unknown.size() == events.size())
        check(unknown.first());
    return unknown;
}

void DBusMenu::handle(int id, const QString& eventId)
{
    if (id == menuId || eventId != u"clicked")
        return;
    // The host gets its answer first: an action may take its time or end the program.
    const auto action = entries[static_cast<std::size_t>(id - 1)].action;
    QMetaObject::invokeMethod(this, action, Qt::QueuedConnection);
}

bool DBusMenu::AboutToShow(int id)
{
    check(id);
    return false;
}

QList<int> DBusMenu::AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors)
{
    for (const int id : ids) {
        if (!contains(id))
            idErrors.append(id);
    }
    if (!ids.isEmpty() && idErrors.size() == ids.size())
        check(ids.first());
    return {};
}

} // namespace sablequill
