// SPDX-License-Identifier: MIT
#pragma once

#include "BusName.h"

#include <QDBusMessage>

#include <functional>

namespace sablequill {

/// Whether there is a portal that offers GlobalShortcuts: it may come, go and come again at any
/// time. Tells each one which program is asking, before anything else is asked of it. Starts the
/// portal when none runs, once, and waits for nobody's answer.
class ShortcutsPortal final : public QObject {
    Q_OBJECT

public:
    /// The connection is for this alone: a portal learns who asks once in a connection's life.
    explicit ShortcutsPortal(const QDBusConnection& bus);

    bool isAvailable() const { return available; }

Q_SIGNALS:
    /// Where another portal takes the place of one, twice.
    void availabilityChanged();

private:
    void ownerChanged();
    void announce();
    void askForVersion();
    void setAvailable(bool isThere);
    /// As BusCall::send, for answers that count only while the portal stays the same.
    void ask(const QDBusMessage& call, std::function<void(const QDBusMessage& answer)> answered);

    QDBusConnection bus;
    BusName portal;
    bool available = false;
};

} // namespace sablequill
