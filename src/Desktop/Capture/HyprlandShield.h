// SPDX-License-Identifier: MIT
#pragma once

#include "Backoff.h"
#include "CaptureShield.h"
#include "HyprlandSweep.h"

#include <QSet>

namespace sablequill {

/// Hyprland: captures show a black box for each window that it is told to hide, once it has the
/// window. Whoever shows a window therefore waits with its content until that is confirmed.
class HyprlandShield final : public CaptureShield {
    Q_OBJECT

public:
    struct Times {
        /// How long a window waits to be hidden, not counting the time that the compositor takes
        /// to answer: while it does not, it draws nothing either.
        std::chrono::milliseconds patience{1000};
        /// Until the compositor is asked again; twice as long each further time.
        std::chrono::milliseconds retry{25};
        /// As long as that time is not more than this, it is also asked where all seems to be done.
        std::chrono::milliseconds check{4000};
    };

    HyprlandShield(const QString& socketPath, const Times& times);
    explicit HyprlandShield(const QString& socketPath)
        : HyprlandShield(socketPath, Times{})
    {
    }
    ~HyprlandShield() override;

    void setWanted(bool isWanted) override;
    bool mustWait(WId window) const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void windowShown(WId window);
    void windowHidden();
    void forget(WId window);
    /// Of the windows that are on the screen, those that are not as they should be.
    bool isSettled() const;
    void begin();
    void sweep();
    void take(HyprlandSweep::Outcome outcome);
    bool takeHidden(const std::vector<QByteArray>& windows);
    bool takeUncovered(const std::vector<QByteArray>& windows);
    void settle(MirkEffect next);
    void retryLater();
    void losePatience();

    const Times times;
    HyprlandSocket socket;
    bool wanted = false;
    int form = 0;
    std::unique_ptr<HyprlandSweep> running;
    Backoff retry;
    bool isWaiting = false;
    std::chrono::milliseconds waited{0};
    /// The compositor knows none of our requests: it is not asked again. Never so once it has
    /// hidden a window.
    bool isRefused = false;
    bool isUnderstood = false;
    HyprlandSweep::Outcome last = HyprlandSweep::Outcome::missing;
    /// The windows that are hidden for sure, those that may be, and those not waited for.
    QSet<WId> hidden;
    QSet<WId> touched;
    QSet<WId> givenUp;
    /// The compositor's names of the windows that it had when all was last as it should be, and the
    /// windows shown since. A name does not tell which window it is, but those shown since have
    /// other names.
    QSet<QByteArray> known;
    QSet<WId> arriving;
};

} // namespace sablequill
