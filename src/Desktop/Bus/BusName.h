// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>

#include <optional>

namespace sablequill {

/// A well-known name on a bus and the program that owns it, which may come, go and come again at
/// any time. Waits for nobody's answer.
class BusName final : public QObject {
    Q_OBJECT

public:
    BusName(const QDBusConnection& bus, const QString& name);

    /// The owner's unique name, empty while there is none; nothing until the bus has answered.
    const std::optional<QString>& owner() const { return current; }
    bool isOwned() const { return current && !current->isEmpty(); }

    /// Has the bus start the program that is installed for the name, if there is one and it does
    /// not run.
    void start();

Q_SIGNALS:
    /// Also with the bus's first answer.
    void ownerChanged();

private Q_SLOTS:
    void busEnded();

private:
    void ask();
    void take(const QString& next);

    QDBusConnection bus;
    const QString name;
    QDBusServiceWatcher watcher;
    std::optional<QString> current;
};

} // namespace sablequill
