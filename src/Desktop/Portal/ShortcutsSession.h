// SPDX-License-Identifier: MIT
#pragma once

#include "PortalRequest.h"
#include "PortalShortcut.h"

#include <QDBusObjectPath>

#include <memory>

namespace sablequill {

/// One session with the GlobalShortcuts portal, which takes shortcuts a single time. Deleting it
/// tells the portal nothing.
class ShortcutsSession final : public QObject {
    Q_OBJECT

public:
    /// Opens the session, and binds the shortcuts in it.
    ShortcutsSession(const QDBusConnection& bus, PortalShortcuts shortcuts);

    const PortalShortcuts& shortcuts() const { return wanted; }
    /// Makes the desktop let go of the keys, and of a question that the user has not answered yet.
    void close();

Q_SIGNALS:
    void activated(const QString& id);
    /// Refused, or closed by the desktop: it holds no keys any more.
    void ended();

private Q_SLOTS:
    void shortcutActivated(const QDBusObjectPath& session, const QString& id, qulonglong timestamp,
        const QVariantMap& options);
    void closed();

private:
    void create();
    void bind(const QString& session);
    void follow();
    PortalRequest& nextRequest();
    void refused();

    QDBusConnection bus;
    const PortalShortcuts wanted;
    /// The portal's object for the session, once it has told of it.
    QString path;
    /// The question that the portal was asked last.
    std::unique_ptr<PortalRequest> request;
};

} // namespace sablequill
