// SPDX-License-Identifier: MIT
#include "HyprlandFocus.h"

#include "Constants.h"
#include "HyprlandRequests.h"

#include <QCoreApplication>

namespace sablequill {

HyprlandFocus::HyprlandFocus(const QString& socketPath, const Times& times)
    : socket(socketPath)
    , retry(times.retry, times.longest)
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
        focus(*window, HyprlandRequests::pinFormCount);
    else
        retry.wait();
}

void HyprlandFocus::focus(const QByteArray& window, int formsLeft)
{
    if (formsLeft == 0) {
        retry.wait();
        return;
    }
    socket.ask(HyprlandRequests::focus(form, window), this,
        [this, window, formsLeft, now = asked](const HyprlandSocket::Answer& answer) {
            if (now != asked)
                return;
            if (answer && HyprlandRequests::isDone(*answer)) {
                Q_EMIT focused();
                return;
            }
            form = (form + 1) % HyprlandRequests::pinFormCount;
            focus(window, formsLeft - 1);
        });
}

} // namespace sablequill
