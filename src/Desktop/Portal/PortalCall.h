// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

/// Calls to the desktop's portal (org.freedesktop.portal.Desktop). Nothing here waits.
namespace sablequill::PortalCall {

extern const QString service;
extern const QString path;

/// A call to the portal's main object, or to the one at `objectPath`. It starts no portal.
QDBusMessage to(
    const QString& interface, const QString& method, const QVariantList& arguments = {});
QDBusMessage toObject(const QString& objectPath, const QString& interface, const QString& method);

/// The path of an object of ours below the portal's: a "request" or a "session", by the token that
/// the call named.
QString ownObject(const QDBusConnection& bus, const QString& kind, const QString& token);
/// A token that no other call of this process has.
QString nextToken();

} // namespace sablequill::PortalCall
