// SPDX-License-Identifier: MIT
#include "BusConnection.h"

#include <QCoreApplication>
#include <QDBusPendingCall>

#include <stdexcept>

namespace sablequill {
namespace {

QString unusedName()
{
    static int number = 0;
    return QStringLiteral("test-%1").arg(++number);
}

} // namespace

BusConnection::BusConnection(const std::string& address)
    : connection(QDBusConnection::connectToBus(QString::fromStdString(address), unusedName()))
{
    if (!connection.isConnected())
        throw std::runtime_error("no connection to the bus " + address);
}

BusConnection::~BusConnection()
{
    QDBusConnection::disconnectFromBus(connection.name());
}

QDBusMessage BusConnection::call(const QDBusMessage& message) const
{
    const QDBusPendingCall pending = connection.asyncCall(message);
    if (runUntil([&] { return pending.isFinished(); }))
        return pending.reply();
    return message.createErrorReply(QDBusError::NoReply, QStringLiteral("no answer in time"));
}

bool runUntil(const std::function<bool()>& condition)
{
    return waitUntil([&] {
        QCoreApplication::processEvents();
        return condition();
    }).has_value();
}

bool runWhile(const std::function<bool()>& condition, Milliseconds duration)
{
    return holdsFor(
        [&] {
            QCoreApplication::processEvents();
            return condition();
        },
        duration);
}

} // namespace sablequill
