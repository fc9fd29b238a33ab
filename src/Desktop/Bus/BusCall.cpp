// SPDX-License-Identifier: MIT
#include "BusCall.h"

#include <QDBusPendingCallWatcher>

#include <limits>
#include <utility>

namespace sablequill::BusCall {

QDBusMessage to(const QString& service, const QString& path, const QString& interface,
    const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return call;
}

QDBusMessage toBus(const QString& method, const QVariantList& arguments)
{
    const QString name = QStringLiteral("org.freedesktop.DBus");
    return to(name, QStringLiteral("/org/freedesktop/DBus"), name, method, arguments);
}

void send(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
    std::function<void(const QDBusMessage& answer)> answered, Patience patience)
{
    // As the bus library has them: what it holds for reasonable, and infinity.
    const int timeout = patience == Patience::usual ? -1 : std::numeric_limits<int>::max();
    auto* pending = new QDBusPendingCallWatcher(bus.asyncCall(call, timeout), context);
    QObject::connect(pending, &QDBusPendingCallWatcher::finished, context,
        [pending, answered = std::move(answered)] {
            pending->deleteLater();
            answered(pending->reply());
        });
}

bool isAnswer(const QDBusMessage& message)
{
    return message.type() == QDBusMessage::ReplyMessage;
}

} // namespace sablequill::BusCall
