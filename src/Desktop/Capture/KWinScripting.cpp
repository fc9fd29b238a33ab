// SPDX-License-Identifier: MIT
#include "KWinScripting.h"

#include "BusCall.h"

#include <QDBusReply>

#include <utility>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.kde.KWin");
const QString path = QStringLiteral("/Scripting");
const QString interface = QStringLiteral("org.kde.kwin.Scripting");
const QString scriptInterface = QStringLiteral("org.kde.kwin.Script");

} // namespace

KWinScripting::KWinScripting(const QDBusConnection& bus)
    : bus(bus)
{
}

void KWinScripting::load(
    const QString& file, const QString& name, std::function<void(std::optional<int>)> loaded)
{
    const QDBusMessage call =
        BusCall::to(service, path, interface, QStringLiteral("loadScript"), {file, name});
    const auto take = [loaded = std::move(loaded)](const QDBusMessage& answer) {
        const QDBusReply<int> reply = answer;
        // A negative number stands for a name that is taken.
        const bool isLoaded = reply.isValid() && reply.value() >= 0;
        loaded(isLoaded ? std::optional(reply.value()) : std::nullopt);
    };
    BusCall::send(bus, call, this, take, BusCall::Patience::endless);
}

void KWinScripting::run(int number, std::function<void()> answered)
{
    const QString script = path + QStringLiteral("/Script%1").arg(number);
    const auto take = [answered = std::move(answered)](const QDBusMessage&) { answered(); };
    BusCall::send(bus, BusCall::to(service, script, scriptInterface, QStringLiteral("run")), this,
        take, BusCall::Patience::endless);
}

void KWinScripting::unload(const QString& name)
{
    bus.send(BusCall::to(service, path, interface, QStringLiteral("unloadScript"), {name}));
}

} // namespace sablequill
