// SPDX-License-Identifier: MIT
#pragma once

#include "BusConnection.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusVirtualObject>

namespace sablequill {

/// A StatusNotifier watcher that keeps whoever asks it waiting, until the test tells it otherwise.
class SilentWatcher final : public QDBusVirtualObject {
public:
    /// Throws std::runtime_error when the bus refuses.
    explicit SilentWatcher(const std::string& busAddress);

    bool hasQuestion() const { return !questions.isEmpty(); }
    /// Each of them answers all that was asked so far: yes or no, that there is no such thing, or
    /// as the bus does when nobody has answered for too long.
    void answer(bool hasHost);
    void refuse();
    void giveUp();
    /// Gives up its name and stays on the bus.
    void leave();

private:
    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    void answerWithError(QDBusError::ErrorType type);

    BusConnection bus;
    QList<QDBusMessage> questions;
};

} // namespace sablequill
