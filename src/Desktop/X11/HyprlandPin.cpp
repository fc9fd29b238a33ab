// SPDX-License-Identifier: MIT
#include "HyprlandPin.h"

#include "Constants.h"
#include "HyprlandRequests.h"

#include <QCoreApplication>

namespace sablequill {

HyprlandPin::HyprlandPin(const QString& socketPath, const Times& times)
    : times(times)
    , socket(socketPath)
{
    retry.setSingleShot(true);
    connect(&retry, &QTimer::timeout, this, &HyprlandPin::askForWindows);
}

void HyprlandPin::pinPanels()
{
    nextRetry = times.retry;
    if (!isAsking)
        retry.start(0);
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
    if (nextRetry > times.longest)
        return;
    retry.start(nextRetry);
    nextRetry *= 2;
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
