// SPDX-License-Identifier: MIT
#include "PortalCall.h"

#include "BusCall.h"

namespace sablequill::PortalCall {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");

QDBusMessage to(const QString& interface, const QString& method, const QVariantList& arguments)
{
    return BusCall::to(service, path, interface, method, arguments);
}

QDBusMessage toObject(const QString& objectPath, const QString& interface, const QString& method)
{
    return BusCall::to(service, objectPath, interface, method);
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
