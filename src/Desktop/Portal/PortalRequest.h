// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

namespace sablequill {

/// A call that the portal may have to ask the user about, and whose result therefore comes as a
/// signal of its own (org.freedesktop.portal.Request).
class PortalRequest final : public QObject {
    Q_OBJECT

public:
    explicit PortalRequest(const QDBusConnection& bus);

    /// Calls a method whose last argument are options; once.
    void send(const QString& interface, const QString& method, QVariantList arguments,
        QVariantMap options = {});
    /// Takes the question back from the user, who may be reading it: nothing is answered then. Does
    /// nothing when it was answered already.
    void cancel();

Q_SIGNALS:
    /// Once, unless the portal goes away before; never while the call is being made.
    void granted(const QVariantMap& results);
    /// Refused by the portal, by the desktop or by the user.
    void refused();

private Q_SLOTS:
    void response(uint code, const QVariantMap& results);

private:
    QDBusConnection bus;
    QString token;
    QString path;
    bool isFinished = false;
};

} // namespace sablequill
