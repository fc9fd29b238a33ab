// SPDX-License-Identifier: MIT
#pragma once

#include "StatusNotifierTypes.h"

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QIcon>
#include <QObject>
#include <QPoint>

namespace sablequill {

/// The program's icon as an object on the bus (freedesktop StatusNotifierItem), in the form in
/// which every host reads it: the interface of KDE.
class StatusNotifierItem final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Category READ category CONSTANT)
    Q_PROPERTY(QString Id READ title CONSTANT)
    Q_PROPERTY(QString Title READ title CONSTANT)
    Q_PROPERTY(QString Status READ status CONSTANT)
    Q_PROPERTY(QString IconName READ iconName CONSTANT)
    Q_PROPERTY(sablequill::StatusNotifierPixmaps IconPixmap READ pixmaps CONSTANT)
    Q_PROPERTY(sablequill::StatusNotifierToolTip ToolTip READ toolTip CONSTANT)
    Q_PROPERTY(bool ItemIsMenu READ isMenu CONSTANT)
    Q_PROPERTY(QDBusObjectPath Menu READ menu CONSTANT)

public:
    /// The path at which hosts look for the item.
    static QString path();

    /// `menu` is the path of the D-Bus menu on the same connection.
    StatusNotifierItem(const QString& title, const QIcon& icon, const QString& menu);

    /// From here on the connection's peers reach the item at `path()`.
    void exportOn(QDBusConnection bus);

    QString category() const;
    QString title() const { return itemTitle; }
    QString status() const;
    /// Empty: the panel's icon theme does not know the icon.
    QString iconName() const { return {}; }
    /// Drawn when a host asks, as few do more than once.
    StatusNotifierPixmaps pixmaps() const { return statusNotifierPixmaps(itemIcon); }
    StatusNotifierToolTip toolTip() const { return {{}, {}, itemTitle, {}}; }
    bool isMenu() const { return false; }
    QDBusObjectPath menu() const { return itemMenu; }

    // NOLINTBEGIN(readability-identifier-naming): the names of the interface.
public Q_SLOTS:
    Q_SCRIPTABLE void Activate(int x, int y);
    Q_SCRIPTABLE void SecondaryActivate(int x, int y);
    /// Only of hosts that do not show the menu themselves.
    Q_SCRIPTABLE void ContextMenu(int x, int y);
    /// Nothing to scroll.
    Q_SCRIPTABLE void Scroll(int delta, const QString& orientation);

Q_SIGNALS:
    // Part of the interface; nothing of this item changes.
    Q_SCRIPTABLE void NewTitle();
    Q_SCRIPTABLE void NewIcon();
    Q_SCRIPTABLE void NewAttentionIcon();
    Q_SCRIPTABLE void NewOverlayIcon();
    Q_SCRIPTABLE void NewToolTip();
    Q_SCRIPTABLE void NewStatus(const QString& status);
    // NOLINTEND(readability-identifier-naming)

    /// The user activated the item in whatever way; the host's answer waits for what is connected.
    /// `place` is what the host tells of it, in native pixels of the display server.
    void activated(QPoint place);

private:
    QString itemTitle;
    QIcon itemIcon;
    QDBusObjectPath itemMenu;
};

} // namespace sablequill
