// SPDX-License-Identifier: MIT
#include "HyprlandPin.h"

#include "Constants.h"
#include "HyprlandRequests.h"

#include <QCoreApplication>

namespace sablequill {

HyprlandPin::HyprlandPin(const QString& socketPath, const Times& times)
    : socket(socketPath)
    , retry(times.retry, times.longest)
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
    if (!unpinned.empty()) {
        socket.ask(HyprlandRequests::pin(form, unpinned.back()), this,
            [this](const HyprlandSocket::Answer& answer) {
                takePinned(answer && HyprlandRequests::isDone(*answer));
            });
        return;
    }
    isAsking = false;
    retry.wait();
}

void HyprlandPin::takePinned(bool isDone)
{
    if (!isDone) {
        form = (form + 1) % HyprlandRequests::pinFormCount;
        ++failedForms;
    }
    // A window may have gone in between.
    if (isDone || failedForms == HyprlandRequests::pinFormCount) {
        failedForms = 0;
        unpinned.pop_back();
    }
    pinNext();
}

} // namespace sablequill
