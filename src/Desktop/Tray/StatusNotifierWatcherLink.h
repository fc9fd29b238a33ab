// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>

namespace sablequill {

/// The program's side of the talk with the session's StatusNotifier watcher, which may come, go and
/// come again at any time: registers the item with each, and follows whether a host shows what is
/// registered. Waits for nobody's answer but, where it finds no watcher, the bus's own.
class StatusNotifierWatcherLink final : public QObject {
    Q_OBJECT

public:
    enum class Host {
        /// Not answered yet.
        unknown,
        absent,
        present,
    };

    /// `itemPath` is the item's path on the same connection.
    StatusNotifierWatcherLink(const QDBusConnection& bus, const QString& itemPath);

    /// The item is exported already.
    void start();
    Host host() const { return currentHost; }

Q_SIGNALS:
    void hostChanged();

private Q_SLOTS:
    void askForHost();
    void busEnded();

private:
    void ownerChanged(const QString& newOwner);
    void registerItem();
    void follow(const QString& signal);
    void takeAnswer(const QDBusMessage& answer);
    void takeNoWatcher();
    void take(Host host);

    QDBusConnection bus;
    QString itemPath;
    QDBusServiceWatcher owner;
    Host currentHost = Host::unknown;
    /// Counts questions and departures: an answer counts only while it is the newest.
    unsigned latest = 0;
};

} // namespace sablequill
