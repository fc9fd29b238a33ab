// SPDX-License-Identifier: MIT
#pragma once

#include "HyprlandSocket.h"

namespace sablequill {

/// Has Hyprland do something that its versions want to be told in different forms: they are tried
/// one after the other, first the one that was understood last.
class HyprlandDispatch {
public:
    /// Of the request in one of the forms, counted from 0.
    using Request = std::function<QByteArray(int form)>;

    HyprlandDispatch(HyprlandSocket& socket, int formCount);

    /// Returns at once. Calls back with whether it was done in any form; never after `asker` or the
    /// socket is gone. This object lives as long as those.
    void send(const Request& request, const QObject* asker, std::function<void(bool isDone)> sent);
    /// What was sent before is tried in no other form, and not called back for.
    void cancel();

private:
    void tryForms(int formsLeft, const Request& request, const QObject* asker,
        const std::function<void(bool)>& sent);

    HyprlandSocket& socket;
    const int formCount;
    int form = 0;
    int cancellations = 0;
};

} // namespace sablequill
