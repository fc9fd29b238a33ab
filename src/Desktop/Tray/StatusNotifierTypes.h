// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDBusArgument>
#include <QIcon>
#include <QList>
#include <QString>

namespace sablequill {

/// An image as StatusNotifierItem sends it, D-Bus type (iiay).
struct StatusNotifierPixmap {
    int width = 0;
    int height = 0;
    /// ARGB of 8 bits each, not premultiplied, most significant byte first, row after row.
    QByteArray bytes;

    bool operator==(const StatusNotifierPixmap&) const = default;
};

/// D-Bus type a(iiay).
using StatusNotifierPixmaps = QList<StatusNotifierPixmap>;

/// D-Bus type (sa(iiay)ss).
struct StatusNotifierToolTip {
    QString iconName;
    StatusNotifierPixmaps icon;
    QString title;
    QString text;

    bool operator==(const StatusNotifierToolTip&) const = default;
};

/// The icon in every size that panels commonly show; without those in which it draws nothing.
StatusNotifierPixmaps statusNotifierPixmaps(const QIcon& icon);

/// Tells the bus how to send the types above. Called before any of them is sent.
void registerStatusNotifierTypes();

QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierPixmap& pixmap);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierPixmap& pixmap);
QDBusArgument& operator<<(QDBusArgument& argument, const StatusNotifierToolTip& toolTip);
const QDBusArgument& operator>>(const QDBusArgument& argument, StatusNotifierToolTip& toolTip);

} // namespace sablequill
