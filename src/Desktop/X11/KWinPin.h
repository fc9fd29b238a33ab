// SPDX-License-Identifier: MIT
#pragma once

#include "Backoff.h"
#include "BusName.h"
#include "KWinJob.h"

namespace sablequill {

/// KWin as a Wayland compositor, which may come, go and come again: a script in it puts the
/// program's panels on every desktop. Since its version 6 it does not do that any more for windows
/// of X clients that say so themselves; the one before, which does, runs no such script.
class KWinPin final : public QObject {
    Q_OBJECT

public:
    struct Times {
        /// How long the script may take to answer once KWin says that it ran.
        std::chrono::milliseconds confirmation{3000};
        /// After a failure; twice as long after each further one.
        std::chrono::milliseconds retry{2000};
    };

    KWinPin(const QDBusConnection& bus, const Times& times);
    explicit KWinPin(const QDBusConnection& bus)
        : KWinPin(bus, Times{})
    {
    }

private:
    void ownerChanged();
    void begin();
    void take(KWinJob::Result result);

    const std::chrono::milliseconds confirmationTime;
    QDBusConnection bus;
    BusName kwin;
    Backoff retry;
    std::unique_ptr<KWinJob> job;
};

} // namespace sablequill
