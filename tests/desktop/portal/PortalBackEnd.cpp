// SPDX-License-Identifier: MIT
#include "PortalBackEnd.h"

#include <QDBusObjectPath>

#include <fstream>
#include <stdexcept>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.freedesktop.impl.portal.desktop.stub");
const QString root = QStringLiteral("/org/freedesktop/portal/desktop");
const QString shortcutsInterface = QStringLiteral("org.freedesktop.impl.portal.GlobalShortcuts");

QString pathIn(const QDBusMessage& call, int index)
{
    return qdbus_cast<QDBusObjectPath>(call.arguments().value(index)).path();
}

} // namespace

PortalBackEnd::PortalBackEnd(const std::string& busAddress)
    : bus(busAddress)
{
    registerPortalShortcutTypes();
    QDBusConnection connection = bus.get();
    connection.registerVirtualObject(root, this, QDBusConnection::SubPath);
    if (!connection.registerService(service))
        throw std::runtime_error("the back end's name is taken");
}

Environment PortalBackEnd::addTo(Environment environment, const PrivateHome& home)
{
    const auto folder = home.path() / "portals";
    std::filesystem::create_directory(folder);
    std::ofstream(folder / "stub.portal")
        << "[portal]\nDBusName=" << service.toStdString()
        << "\nInterfaces=" << shortcutsInterface.toStdString() << "\nUseIn=stub\n";
    environment["XDG_DESKTOP_PORTAL_DIR"] = folder.string();
    environment["XDG_CURRENT_DESKTOP"] = "stub";
    return environment;
}

QString PortalBackEnd::introspect(const QString&) const
{
    return {};
}

bool PortalBackEnd::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    if (message.member() == u"CreateSession") {
        connection.send(message.createReply({0U, QVariantMap()}));
    } else if (message.member() == u"BindShortcuts") {
        ++questionCount;
        session = pathIn(message, 1);
        if (answer == 0)
            held = qdbus_cast<PortalShortcuts>(message.arguments().value(2));
        connection.send(message.createReply({answer, QVariantMap()}));
    } else if (message.member() == u"Close") {
        if (message.path() == session)
            held.reset();
        connection.send(message.createReply());
    } else {
        return false;
    }
    return true;
}

void PortalBackEnd::press(const QString& id) const
{
    tell(QStringLiteral("Activated"), id);
    tell(QStringLiteral("Deactivated"), id);
}

void PortalBackEnd::tell(const QString& name, const QString& id) const
{
    QDBusMessage message = QDBusMessage::createSignal(root, shortcutsInterface, name);
    message.setArguments(
        {QVariant::fromValue(QDBusObjectPath(session)), id, qulonglong{0}, QVariantMap()});
    bus.get().send(message);
}

} // namespace sablequill
