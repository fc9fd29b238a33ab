// SPDX-License-Identifier: MIT
#include "SilentWatcher.h"

#include <QDBusVariant>

#include <stdexcept>
#include <utility>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.kde.StatusNotifierWatcher");

} // namespace

SilentWatcher::SilentWatcher(const std::string& busAddress)
    : bus(busAddress)
{
    QDBusConnection connection = bus.get();
    connection.registerVirtualObject(QStringLiteral("/StatusNotifierWatcher"), this);
    if (!connection.registerService(service))
        throw std::runtime_error("the watcher's name is taken");
}

QString SilentWatcher::introspect(const QString&) const
{
    return {};
}

bool SilentWatcher::handleMessage(const QDBusMessage& message, const QDBusConnection&)
{
    if (message.member() == u"Get")
        questions.append(message);
    return true;
}

void SilentWatcher::answer(bool hasHost)
{
    const QVariant value = QVariant::fromValue(QDBusVariant(hasHost));
    for (const QDBusMessage& question : std::exchange(questions, {}))
        bus.get().send(question.createReply(value));
}

void SilentWatcher::refuse()
{
    answerWithError(QDBusError::UnknownProperty);
}

void SilentWatcher::giveUp()
{
    answerWithError(QDBusError::NoReply);
}

void SilentWatcher::answerWithError(QDBusError::ErrorType type)
{
    for (const QDBusMessage& question : std::exchange(questions, {}))
        bus.get().send(question.createErrorReply(type, QStringLiteral("no")));
}

void SilentWatcher::leave()
{
    bus.get().unregisterService(service);
}

} // namespace sablequill
