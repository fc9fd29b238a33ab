// SPDX-License-Identifier: MIT
#include "HyprlandSweep.h"

#include "HyprlandRequests.h"

#include <QCoreApplication>

#include <algorithm>

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
            Q_EMIT finished(Outcome::silent);
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
        takeDoneWindow();
}

void HyprlandSweep::readBack()
{
    ask(HyprlandRequests::getHidden(currentForm, windows[present]), &HyprlandSweep::takeReadBack);
}

void HyprlandSweep::takeReadBack(const QByteArray& answer)
{
    if (HyprlandRequests::isTrue(answer))
        takeDoneWindow();
    else
        tryNextForm();
}

void HyprlandSweep::takeDoneWindow()
{
    done.push_back(windows[present]);
    takeNextWindow();
}

void HyprlandSweep::takeNextWindow()
{
    failedForms = 0;
    if (++present < windows.size())
        trySetting();
    else
        Q_EMIT finished(outcome());
}

HyprlandSweep::Outcome HyprlandSweep::outcome() const
{
    if (isRefused)
        return done.empty() ? Outcome::refused : Outcome::missing;
    return done.empty() ? Outcome::missing : Outcome::done;
}

void HyprlandSweep::tryNextForm()
{
    currentForm = (currentForm + 1) % HyprlandRequests::formCount;
    if (++failedForms < HyprlandRequests::formCount)
        trySetting();
    else if (isListed)
        ask(HyprlandRequests::listWindows(), &HyprlandSweep::takeWindowsAfterFailure);
    else
        Q_EMIT finished(Outcome::missing);
}

void HyprlandSweep::takeWindowsAfterFailure(const QByteArray& answer)
{
    // A tooltip or a menu may go between two requests, and one that is just closing may still be
    // listed; that says nothing about the others.
    const auto still = HyprlandRequests::windowsIn(answer, QCoreApplication::applicationPid());
    if (std::find(still.begin(), still.end(), windows[present]) != still.end())
        isRefused = true;
    takeNextWindow();
}

} // namespace sablequill
