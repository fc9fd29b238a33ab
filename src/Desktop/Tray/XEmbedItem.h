// SPDX-License-Identifier: MIT
#pragma once

#include "StatusItem.h"

#include <QIcon>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace sablequill {

/// The program's icon in a status area of the older kind (freedesktop System Tray Protocol), which
/// may come, go and come again while it is shown. The toolkit looks for a StatusNotifier host once,
/// when it is shown first, waits for the watcher's answer if there is one, and stays with what it
/// finds: show it only where there is no host, and no watcher that does not answer.
class XEmbedItem final : public QObject {
    Q_OBJECT

public:
    XEmbedItem(const QString& title, const QIcon& icon);

    void show();
    void hide();
    /// The icon's rectangle; nothing while no status area shows it.
    StatusItemAnchor anchor() const;

Q_SIGNALS:
    /// A click with any button.
    void activated();

private:
    void create();

    QString title;
    QIcon icon;
    std::unique_ptr<QSystemTrayIcon> trayIcon;
};

} // namespace sablequill
