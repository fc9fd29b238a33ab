// SPDX-License-Identifier: MIT
#include "KWinScripting.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include <utility>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.kde.KWin");
const QString path = QStringLiteral("/Scripting");
const QString interface = QStringLiteral("org.kde.kwin.Scripting");
const QString scriptInterface = QStringLiteral("org.kde.kwin.Script");

QDBusMessage callTo(const QString& object, const QString& interface, const QString& method,
    const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, object, interface, method);
    call.setArguments(arguments);
    // It is the session that starts its compositor.
    call.setAutoStartService(false);
    return call;
}

} // namespace

KWinScripting::KWinScripting(const QDBusConnection& bus)
    : bus(bus)
{
}

void KWinScripting::load(
    const QString& file, const QString& name, std::function<void(std::optional<int>)> loaded)
{
    const QDBusMessage call = callTo(path, interface, QStringLiteral("loadScript"), {file, name});
    auto* pending = new QDBusPendingCallWatcher(bus.asyncCall(call), this);
    connect(
        pending, &QDBusPendingCallWatcher::finished, this, [pending, loaded = std::move(loaded)] {
            pending->deleteLater();
            const QDBusPendingReply<int> reply = *pending;
            // A negative number stands for a name that is taken.
            const bool isLoaded = reply.isValid() && reply.value() >= 0;
            loaded(isLoaded ? std::optional(reply.value()) : std::nullopt);
        });
}

void KWinScripting::run(int number)
{
    const QString script = path + QStringLiteral("/Script%1").arg(number);
    bus.send(callTo(script, scriptInterface, QStringLiteral("run"), {}));
}

void KWinScripting::unload(const QString& name)
{
    bus.send(callTo(path, interface, QStringLiteral("unloadScript"), {name}));
}

} // namespace sablequill
