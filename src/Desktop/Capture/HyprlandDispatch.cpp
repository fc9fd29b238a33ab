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

void HyprlandDispatch::tryForms(int formsLeft, const Request& request, const QObject* asker,
    const std::function<void(bool)>& sent)
{
    if (formsLeft == 0) {
        sent(false);
        return;
    }
    socket.ask(request(form), asker, [=, this](const HyprlandSocket::Answer& answer) {
        if (answer && HyprlandRequests::isDone(*answer)) {
            sent(true);
            return;
        }
        form = (form + 1) % formCount;
        tryForms(formsLeft - 1, request, asker, sent);
    });
}

} // namespace sablequill
