// SPDX-License-Identifier: MIT
#include "HyprlandPin.h"

#include "Constants.h"
#include "HyprlandRequests.h"

#include <QCoreApplication>

namespace sablequill {

HyprlandPin::HyprlandPin(const QString& socketPath, const Times& times)
    : socket(socketPath)
    , retry(times.retry, times.longest)
    , dispatch(socket, HyprlandRequests::dispatchFormCount)
{
    connect(&retry, &Backoff::elapsed, this, &HyprlandPin::askForWindows);
}

void HyprlandPin::pinPanels()
{
    retry.reset();
    if (!isAsking)
        retry.runSoon();
}

void HyprlandPin::askForWindows()
{
    isAsking = true;
    socket.ask(HyprlandRequests::listWindows(), this, [this](const HyprlandSocket::Answer& answer) {
        unpinned = HyprlandRequests::unpinnedIn(
            answer.value_or(QByteArray()), QCoreApplication::applicationPid(), Constants::appName);
        pinNext();
    });
}

void HyprlandPin::pinNext()
{
    if (unpinned.empty()) {
        isAsking = false;
        retry.wait();
        return;
    }
    const QByteArray window = unpinned.back();
    unpinned.pop_back();
    // It may have gone in between: then no form does it.
    dispatch.send([window](int form) { return HyprlandRequests::pin(form, window); }, this,
        [this](bool) { pinNext(); });
}

} // namespace sablequill
