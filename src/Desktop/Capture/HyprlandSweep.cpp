// SPDX-License-Identifier: MIT
#include "HyprlandSweep.h"

#include "HyprlandRequests.h"

#include <QCoreApplication>

namespace sablequill {

HyprlandSweep::HyprlandSweep(HyprlandSocket& socket, bool isWanted, int form)
    : socket(socket)
    , isWanted(isWanted)
    , currentForm(form)
{
}

void HyprlandSweep::start()
{
    ask(HyprlandRequests::listWindows(), &HyprlandSweep::takeWindows);
}

void HyprlandSweep::ask(
    const QByteArray& request, void (HyprlandSweep::*take)(const QByteArray& answer))
{
    socket.ask(request, this, [this, take](const HyprlandSocket::Answer& answer) {
        if (answer)
            (this->*take)(*answer);
        else
            Q_EMIT finished(Outcome::silent, 0);
    });
}

void HyprlandSweep::takeWindows(const QByteArray& answer)
{
    const qint64 pid = QCoreApplication::applicationPid();
    windows = HyprlandRequests::windowsIn(answer, pid);
    isListed = !windows.empty();
    // One of them is better than none.
    if (!isListed)
        windows.push_back("pid:" + QByteArray::number(pid));
    trySetting();
}

void HyprlandSweep::trySetting()
{
    ask(HyprlandRequests::setHidden(currentForm, windows[present], isWanted),
        &HyprlandSweep::takeSetting);
}

void HyprlandSweep::takeSetting(const QByteArray& answer)
{
    if (!HyprlandRequests::isDone(answer))
        tryNextForm();
    else if (isWanted)
        readBack();
    else
        takeNextWindow();
}

void HyprlandSweep::readBack()
{
    ask(HyprlandRequests::getHidden(currentForm, windows[present]), &HyprlandSweep::takeReadBack);
}

void HyprlandSweep::takeReadBack(const QByteArray& answer)
{
    if (HyprlandRequests::isTrue(answer))
        takeNextWindow();
    else
        tryNextForm();
}

void HyprlandSweep::takeNextWindow()
{
    failedForms = 0;
    if (++present < windows.size())
        trySetting();
    else
        Q_EMIT finished(Outcome::done, static_cast<int>(windows.size()));
}

void HyprlandSweep::tryNextForm()
{
    currentForm = (currentForm + 1) % HyprlandRequests::formCount;
    if (++failedForms < HyprlandRequests::formCount)
        trySetting();
    else
        Q_EMIT finished(isListed ? Outcome::refused : Outcome::missing, 0);
}

} // namespace sablequill
