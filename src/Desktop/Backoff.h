// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <chrono>

namespace sablequill {

/// The times at which something is tried again: each wait is twice as long as the one before, until
/// it would be longer than the longest one.
class Backoff final : public QObject {
    Q_OBJECT

public:
    Backoff(std::chrono::milliseconds first, std::chrono::milliseconds longest);

    /// The next wait is the first one again. Leaves one that is under way as it is.
    void reset();
    /// The time comes in the next turn of the main loop.
    void runSoon();
    /// Starts the next wait; does nothing when that would be too long.
    void wait();
    void stop();

    /// Of the next wait.
    std::chrono::milliseconds time() const { return next; }
    /// Whether nothing was waited for since the last reset.
    bool isFresh() const { return next == first; }

Q_SIGNALS:
    void elapsed();

private:
    const std::chrono::milliseconds first;
    const std::chrono::milliseconds longest;
    std::chrono::milliseconds next;
    QTimer timer;
};

} // namespace sablequill
