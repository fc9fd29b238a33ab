// SPDX-License-Identifier: MIT
#include "ShortcutsSession.h"

#include "PortalCall.h"

#include <utility>

namespace sablequill {
namespace {

const QString shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString sessionInterface = QStringLiteral("org.freedesktop.portal.Session");
const QString sessionHandle = QStringLiteral("session_handle");

/// The program is not asked by one of its windows.
const QString noParentWindow = QStringLiteral("");

} // namespace

ShortcutsSession::ShortcutsSession(const QDBusConnection& bus, PortalShortcuts shortcuts)
    : bus(bus)
    , wanted(std::move(shortcuts))
{
    create();
}

void ShortcutsSession::create()
{
    PortalRequest& creation = nextRequest();
    connect(&creation, &PortalRequest::granted, this,
        [this](const QVariantMap& results) { bind(results.value(sessionHandle).toString()); });
    creation.send(shortcutsInterface, QStringLiteral("CreateSession"), {},
        {{QStringLiteral("session_handle_token"), PortalCall::nextToken()}});
}

void ShortcutsSession::bind(const QString& session)
{
    // Only what has the form of a path may go onto the bus as one.
    if (QDBusObjectPath(session).path().isEmpty()) {
        Q_EMIT ended();
        return;
    }
    path = session;
    follow();
    nextRequest().send(shortcutsInterface, QStringLiteral("BindShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(path)), QVariant::fromValue(wanted), noParentWindow});
}

void ShortcutsSession::follow()
{
    bus.connect(PortalCall::service, path, sessionInterface, QStringLiteral("Closed"), this,
        SLOT(closed()));
    bus.connect(PortalCall::service, PortalCall::path, shortcutsInterface,
        QStringLiteral("Activated"), this,
        SLOT(shortcutActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
}

PortalRequest& ShortcutsSession::nextRequest()
{
    // The one before is still telling of its result.
    if (request)
        request.release()->deleteLater();
    request = std::make_unique<PortalRequest>(bus);
    connect(request.get(), &PortalRequest::refused, this, &ShortcutsSession::refused);
    return *request;
}

void ShortcutsSession::close()
{
    request->cancel();
    if (!path.isEmpty())
        bus.send(PortalCall::toObject(path, sessionInterface, QStringLiteral("Close")));
}

void ShortcutsSession::refused()
{
    close();
    Q_EMIT ended();
}

void ShortcutsSession::closed()
{
    Q_EMIT ended();
}

void ShortcutsSession::shortcutActivated(
    const QDBusObjectPath& session, const QString& id, qulonglong, const QVariantMap&)
{
    if (session.path() == path)
        Q_EMIT activated(id);
}

} // namespace sablequill
