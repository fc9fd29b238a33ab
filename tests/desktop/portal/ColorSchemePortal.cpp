// SPDX-License-Identifier: MIT
#include "ColorSchemePortal.h"

#include <QDBusConnection>
#include <QDBusVariant>

#include <stdexcept>

namespace sablequill {

ColorSchemePortal::ColorSchemePortal(unsigned scheme)
    : scheme(scheme)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    bus.registerObject(QStringLiteral("/org/freedesktop/portal/desktop"), this,
        QDBusConnection::ExportScriptableContents);
    if (!bus.registerService(QStringLiteral("org.freedesktop.portal.Desktop")))
        throw std::runtime_error("the portal's name is taken");
}

QDBusVariant ColorSchemePortal::Read(const QString& nameSpace, const QString& key)
{
    if (nameSpace != u"org.freedesktop.appearance" || key != u"color-scheme")
        sendErrorReply(QStringLiteral("org.freedesktop.portal.Error.NotFound"),
            QStringLiteral("Requested setting not found"));
    // As the portals answer this method: a variant in a variant.
    return QDBusVariant(QVariant::fromValue(QDBusVariant(scheme)));
}

} // namespace sablequill
