// SPDX-License-Identifier: MIT
#include "HyprlandFocus.h"

#include "Constants.h"
#include "HyprlandRequests.h"

#include <QCoreApplication>

namespace sablequill {

HyprlandFocus::HyprlandFocus(const QString& socketPath, const Times& times)
    : socket(socketPath)
    , retry(times.retry, times.longest)
    , dispatch(socket, HyprlandRequests::dispatchFormCount)
{
    connect(&retry, &Backoff::elapsed, this, &HyprlandFocus::askForWindows);
}

void HyprlandFocus::focusPanel(const QRect& next)
{
    stop();
    frame = next;
    retry.reset();
    askForWindows();
}

void HyprlandFocus::stop()
{
    ++asked;
    dispatch.cancel();
    retry.stop();
}

void HyprlandFocus::askForWindows()
{
    socket.ask(HyprlandRequests::listWindows(), this,
        [this, now = asked](const HyprlandSocket::Answer& answer) {
            if (now == asked)
                takeWindows(answer.value_or(QByteArray()));
        });
}

void HyprlandFocus::takeWindows(const QByteArray& answer)
{
    const auto window = HyprlandRequests::windowIn(
        answer, QCoreApplication::applicationPid(), Constants::appName, frame);
    if (window)
        focus(*window);
    else
        retry.wait();
}

void HyprlandFocus::focus(const QByteArray& window)
{
    dispatch.send([window](int form) { return HyprlandRequests::focus(form, window); }, this,
        [this](bool isDone) {
            if (isDone)
                Q_EMIT focused();
            else
                retry.wait();
        });
}

} // namespace sablequill
