// SPDX-License-Identifier: MIT
#include "HyprlandDispatch.h"

#include "HyprlandRequests.h"

#include <utility>

namespace sablequill {

HyprlandDispatch::HyprlandDispatch(HyprlandSocket& socket, int formCount)
    : socket(socket)
    , formCount(formCount)
{
}

void HyprlandDispatch::send(
    const Request& request, const QObject* asker, std::function<void(bool)> sent)
{
    tryForms(formCount, request, asker, std::move(sent));
}

void HyprlandDispatch::cancel()
{
    ++cancellations;
}

void HyprlandDispatch::tryForms(int formsLeft, const Request& request, const QObject* asker,
    const std::function<void(bool)>& sent)
{
    if (formsLeft == 0) {
        sent(false);
        return;
    }
    const auto answered = [=, this, now = cancellations](const HyprlandSocket::Answer& answer) {
        if (now != cancellations)
            return;
        if (answer && HyprlandRequests::isDone(*answer)) {
            sent(true);
            return;
        }
        form = (form + 1) % formCount;
        tryForms(formsLeft - 1, request, asker, sent);
    };
    socket.ask(request(form), asker, answered);
}

} // namespace sablequill
