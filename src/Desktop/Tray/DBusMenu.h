// SPDX-License-Identifier: MIT
#pragma once

#include "DBusMenuTypes.h"
#include "StatusItem.h"

#include <QDBusConnection>
#include <QDBusContext>
#include <QObject>

namespace sablequill {

/// A menu of one level as an object on the bus (com.canonical.dbusmenu), which a host draws. The
/// menu itself has the number 0, its entries 1 and up. What concerns a number that there is not is
/// answered with the error InvalidArgs, in groups by leaving it out.
class DBusMenu final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.canonical.dbusmenu")
    Q_PROPERTY(uint Version READ version CONSTANT)
    Q_PROPERTY(QString TextDirection READ textDirection CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QStringList IconThemePath READ iconThemePath CONSTANT)

public:
    static QString path();

    explicit DBusMenu(std::vector<StatusMenuEntry> entries);

    /// From here on the connection's peers reach the menu at `path()`.
    void exportOn(QDBusConnection bus);

    uint version() const { return 3; }
    /// As the application's texts run at the time of the question.
    QString textDirection() const;
    QString status() const;
    QStringList iconThemePath() const { return {}; }

    // NOLINTBEGIN(readability-identifier-naming): the names of the interface.
public Q_SLOTS:
    /// Returns the layout's revision. `recursionDepth` levels below the parent, all when negative;
    /// all properties when no name is given.
    Q_SCRIPTABLE uint GetLayout(int parentId, int recursionDepth, const QStringList& propertyNames,
        sablequill::DBusMenuLayout& layout);
    /// Of all entries when no number is given.
    Q_SCRIPTABLE QList<sablequill::DBusMenuItem> GetGroupProperties(
        const QList<int>& ids, const QStringList& propertyNames);
    Q_SCRIPTABLE QDBusVariant GetProperty(int id, const QString& name);
    /// Runs the entry's action in a later turn of the main loop when `eventId` is "clicked".
    Q_SCRIPTABLE void Event(
        int id, const QString& eventId, const QDBusVariant& data, uint timestamp);
    /// Returns the numbers that there are not.
    Q_SCRIPTABLE QList<int> EventGroup(const QList<sablequill::DBusMenuEvent>& events);
    /// Returns whether the menu has changed since the layout was asked for: it never does.
    Q_SCRIPTABLE bool AboutToShow(int id);
    Q_SCRIPTABLE QList<int> AboutToShowGroup(const QList<int>& ids, QList<int>& idErrors);

Q_SIGNALS:
    // Part of the interface; the menu never changes.
    Q_SCRIPTABLE void ItemsPropertiesUpdated(
        const QList<sablequill::DBusMenuItem>& updatedProperties,
        const QList<sablequill::DBusMenuItemKeys>& removedProperties);
    Q_SCRIPTABLE void LayoutUpdated(uint revision, int parent);
    Q_SCRIPTABLE void ItemActivationRequested(int id, uint timestamp);
    // NOLINTEND(readability-identifier-naming)

private:
    bool contains(int id) const;
    /// Refuses the call that is being answered unless there is such an entry.
    bool check(int id);
    QVariantMap propertiesOf(int id, const QStringList& names) const;
    void handle(int id, const QString& eventId);

    std::vector<StatusMenuEntry> entries;
};

} // namespace sablequill
