// SPDX-License-Identifier: MIT
#include "PortalStub.h"

#include <QDBusObjectPath>
#include <QDBusVariant>

#include <algorithm>
#include <stdexcept>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString root = QStringLiteral("/org/freedesktop/portal/desktop");
const QString shortcutsInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString sessionInterface = QStringLiteral("org.freedesktop.portal.Session");

QString pathOf(const QString& kind, const QDBusMessage& call, const QVariant& token)
{
    QString sender = call.service().mid(1);
    sender.replace(u'.', u'_');
    return QStringLiteral("%1/%2/%3/%4").arg(root, kind, sender, token.toString());
}

template <typename T> T argument(const QDBusMessage& call, int index)
{
    return qdbus_cast<T>(call.arguments().value(index));
}

QString described(const PortalShortcuts& shortcuts)
{
    QStringList parts;
    for (const auto& shortcut : shortcuts)
        parts.append(QStringLiteral("%1=%2").arg(shortcut.id, shortcut.trigger));
    return parts.join(u' ');
}

} // namespace

PortalStub::PortalStub(const std::string& busAddress, Behavior behavior)
    : behavior(behavior)
    , bus(busAddress)
{
    registerPortalShortcutTypes();
    QDBusConnection connection = bus.get();
    connection.registerVirtualObject(root, this, QDBusConnection::SubPath);
    if (!connection.registerService(service))
        throw std::runtime_error("the portal's name is taken");
}

QString PortalStub::introspect(const QString&) const
{
    return {};
}

std::optional<PortalShortcuts> PortalStub::bound() const
{
    return session ? session->shortcuts : std::nullopt;
}

bool PortalStub::press(const QString& id)
{
    const PortalShortcuts held = bound().value_or(PortalShortcuts());
    const bool isHeld = std::any_of(
        held.begin(), held.end(), [&](const auto& shortcut) { return shortcut.id == id; });
    if (!isHeld)
        return false;
    tell(QStringLiteral("Activated"), session->path, id);
    tell(QStringLiteral("Deactivated"), session->path, id);
    return true;
}

void PortalStub::pressElsewhere(const QString& id)
{
    tell(QStringLiteral("Activated"), session->path + QStringLiteral("x"), id);
}

void PortalStub::closeSession()
{
    signal(session->program, session->path, sessionInterface, QStringLiteral("Closed"),
        {QVariantMap()});
    session.reset();
}

bool PortalStub::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    if (behavior.isHanging) {
        recorded.append(message.member());
        return true;
    }
    const auto answer = answerTo(message);
    onCall();
    if (answer)
        connection.send(*answer);
    return answer.has_value();
}

std::optional<QDBusMessage> PortalStub::answerTo(const QDBusMessage& call)
{
    const QString method = call.member();
    if (method == u"Register" && behavior.hasRegistry)
        return registerProgram(call);
    if (method == u"Get")
        return version(call);
    if (method == u"CreateSession" && behavior.hasShortcuts)
        return createSession(call);
    if (method == u"BindShortcuts" && behavior.hasShortcuts)
        return bindShortcuts(call);
    if (method == u"Close")
        return close(call);
    recorded.append(method);
    return std::nullopt;
}

QDBusMessage PortalStub::registerProgram(const QDBusMessage& call)
{
    const auto id = argument<QString>(call, 0);
    recorded.append(QStringLiteral("Register ") + id);
    if (id.isEmpty() || programs.contains(call.service()))
        return call.createErrorReply(QDBusError::Failed, QStringLiteral("not now"));
    programs.insert(call.service(), id);
    return call.createReply();
}

QDBusMessage PortalStub::version(const QDBusMessage& call) const
{
    if (!behavior.hasShortcuts || argument<QString>(call, 0) != shortcutsInterface)
        return call.createErrorReply(QDBusError::InvalidArgs, QStringLiteral("no such interface"));
    return call.createReply(QVariant::fromValue(QDBusVariant(2U)));
}

QDBusMessage PortalStub::createSession(const QDBusMessage& call)
{
    recorded.append(call.member());
    if (behavior.hasRegistry && !programs.contains(call.service()))
        return call.createErrorReply(
            QDBusError::AccessDenied, QStringLiteral("an app id is required"));
    const auto options = argument<QVariantMap>(call, 0);
    const QString path =
        pathOf(QStringLiteral("session"), call, options[QStringLiteral("session_handle_token")]);
    session = Session{call.service(), path, std::nullopt};
    respond(call, options, 0, {{QStringLiteral("session_handle"), path}});
    return call.createReply(QVariant::fromValue(QDBusObjectPath(
        pathOf(QStringLiteral("request"), call, options[QStringLiteral("handle_token")]))));
}

QDBusMessage PortalStub::bindShortcuts(const QDBusMessage& call)
{
    const auto shortcuts = argument<PortalShortcuts>(call, 1);
    const auto options = argument<QVariantMap>(call, 3);
    recorded.append(QStringLiteral("BindShortcuts ") + described(shortcuts));
    const bool isOwn = session && session->path == argument<QDBusObjectPath>(call, 0).path();
    if (!isOwn || session->shortcuts)
        return call.createErrorReply(QDBusError::AccessDenied, QStringLiteral("no fresh session"));
    if (!behavior.isUndecided && behavior.answer == 0)
        session->shortcuts = shortcuts;
    if (!behavior.isUndecided)
        respond(call, options, behavior.answer, {});
    return call.createReply(QVariant::fromValue(QDBusObjectPath(
        pathOf(QStringLiteral("request"), call, options[QStringLiteral("handle_token")]))));
}

QDBusMessage PortalStub::close(const QDBusMessage& call)
{
    const bool isSession = call.interface() == sessionInterface;
    recorded.append(isSession ? QStringLiteral("Session.Close") : QStringLiteral("Request.Close"));
    if (isSession && session && session->path == call.path())
        session.reset();
    return call.createReply();
}

void PortalStub::respond(
    const QDBusMessage& call, const QVariantMap& options, uint code, const QVariantMap& results)
{
    // Before the call's own answer: a program that listens from then on only would miss it.
    signal(call.service(),
        pathOf(QStringLiteral("request"), call, options[QStringLiteral("handle_token")]),
        QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Response"),
        {code, results});
}

void PortalStub::signal(const QString& program, const QString& path, const QString& interface,
    const QString& name, const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createTargetedSignal(program, path, interface, name);
    message.setArguments(arguments);
    bus.get().send(message);
}

void PortalStub::tell(const QString& name, const QString& path, const QString& id) const
{
    signal(session->program, root, shortcutsInterface, name,
        {QVariant::fromValue(QDBusObjectPath(path)), id, qulonglong{0}, QVariantMap()});
}

} // namespace sablequill
