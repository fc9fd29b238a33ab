// SPDX-License-Identifier: MIT
#include "PortalCall.h"

#include <QDBusPendingCallWatcher>

#include <utility>

namespace sablequill::PortalCall {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

QDBusMessage to(const QString& interface, const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = toObject(path, interface, method);
    call.setArguments(arguments);
    return call;
}

QDBusMessage toObject(const QString& objectPath, const QString& interface, const QString& method)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, objectPath, interface, method);
    call.setAutoStartService(false);
    return call;
}

void send(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
    std::function<void(const QDBusMessage& answer)> answered)
{
    auto* pending = new QDBusPendingCallWatcher(bus.asyncCall(call), context);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, context,
        [pending, answered = std::move(answered)] {
            pending->deleteLater();
            answered(pending->reply());
        });
}

QString ownObject(const QDBusConnection& bus, const QString& kind, const QString& token)
{
    QString sender = bus.baseService().mid(1);
    sender.replace(u'.', u'_');
    return QStringLiteral("%1/%2/%3/%4").arg(path, kind, sender, token);
}

QString nextToken()
{
    static unsigned number = 0;
    return QStringLiteral("sablequill%1").arg(++number);
}

} // namespace sablequill::PortalCall
