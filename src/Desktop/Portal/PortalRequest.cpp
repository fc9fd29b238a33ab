// SPDX-License-Identifier: MIT
#include "PortalRequest.h"

#include "BusCall.h"
#include "PortalCall.h"

#include <utility>

namespace sablequill {
namespace {

const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");

/// The portal's code for "as you asked"; the others are a user's no and every other failure.
constexpr uint success = 0;

} // namespace

PortalRequest::PortalRequest(const QDBusConnection& bus)
    : bus(bus)
    , token(PortalCall::nextToken())
    , path(PortalCall::ownObject(bus, QStringLiteral("request"), token))
{
}

void PortalRequest::send(
    const QString& interface, const QString& method, QVariantList arguments, QVariantMap options)
{
    // The result may come before the call's own answer.
    bus.connect(PortalCall::service, path, requestInterface, QStringLiteral("Response"), this,
        SLOT(response(uint, QVariantMap)));
    options.insert(QStringLiteral("handle_token"), token);
    arguments.append(options);
    BusCall::send(bus, PortalCall::to(interface, method, arguments), this,
        [this](const QDBusMessage& answer) {
            if (!BusCall::isAnswer(answer))
                response(success + 1, {});
        });
}

void PortalRequest::cancel()
{
    if (std::exchange(isFinished, true))
        return;
    bus.send(PortalCall::toObject(path, requestInterface, QStringLiteral("Close")));
}

void PortalRequest::response(uint code, const QVariantMap& results)
{
    if (std::exchange(isFinished, true))
        return;
    if (code == success)
        Q_EMIT granted(results);
    else
        Q_EMIT refused();
}

} // namespace sablequill
