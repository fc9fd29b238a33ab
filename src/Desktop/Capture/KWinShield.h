// SPDX-License-Identifier: MIT
#pragma once

#include "Backoff.h"
#include "BusName.h"
#include "CaptureShield.h"
#include "KWinJob.h"

namespace sablequill {

/// KWin as a Wayland compositor, which may come, go and come again: it leaves windows out of
/// captures where its scripts can tell it to. Versions are not compared, the script tries.
class KWinShield final : public CaptureShield {
    Q_OBJECT

public:
    struct Times {
        /// How long a window waits for a KWin that is not on the bus. One that is there is waited
        /// for until it has answered or failed.
        std::chrono::milliseconds patience{1000};
        /// How long a script may take to answer once KWin says that it ran.
        std::chrono::milliseconds confirmation{3000};
        /// After a failure; twice as long after each further one.
        std::chrono::milliseconds retry{2000};
    };

    explicit KWinShield(const QDBusConnection& bus, const Times& times);
    explicit KWinShield(const QDBusConnection& bus)
        : KWinShield(bus, Times{})
    {
    }

    void setWanted(bool isWanted) override;
    bool mustWait(WId window) const override;

private:
    void ownerChanged();
    void begin();
    void take(KWinJob::Result result);
    void settle(MirkEffect next);
    void startWaiting();
    void stopWaiting();

    const Times times;
    QDBusConnection bus;
    BusName kwin;
    QTimer patience;
    Backoff retry;
    bool isWaiting = false;
    std::optional<bool> wanted;
    /// The KWin that is there cannot hide windows.
    bool isUnsupported = false;
    std::unique_ptr<KWinJob> job;
};

} // namespace sablequill
