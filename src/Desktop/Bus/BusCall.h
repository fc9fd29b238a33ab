// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>

#include <functional>

class QObject;

/// Calls to other programs on a bus. Nothing here waits.
namespace sablequill::BusCall {

/// A call that starts no program: who is not there gives an error for an answer.
QDBusMessage to(const QString& service, const QString& path, const QString& interface,
    const QString& method, const QVariantList& arguments = {});
/// A call to the bus itself.
QDBusMessage toBus(const QString& method, const QVariantList& arguments);

/// How long an answer is waited for.
enum class Patience { usual, endless };

/// Sends the call; `answered` gets the answer or the error, unless `context` has gone by then.
void send(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
    std::function<void(const QDBusMessage& answer)> answered, Patience patience = Patience::usual);

/// Whether that is an answer, not an error.
bool isAnswer(const QDBusMessage& message);

} // namespace sablequill::BusCall
