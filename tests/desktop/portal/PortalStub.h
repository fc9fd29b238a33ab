// SPDX-License-Identifier: MIT
#pragma once

#include "BusConnection.h"
#include "PortalShortcut.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QMap>
#include <QStringList>

#include <functional>
#include <optional>

namespace sablequill {

/// A desktop's portal in the form of its part on the session bus, as far as it concerns system-wide
/// keys: what the newer front ends do (xdg-desktop-portal 1.21), with a user who answers at once.
/// Ends with the object.
class PortalStub final : public QDBusVirtualObject {
public:
    struct Behavior {
        /// Portals before 1.19.4 have no registry of programs, and take those that are unknown.
        bool hasRegistry = true;
        bool hasShortcuts = true;
        /// Keeps whoever asks waiting for good.
        bool isHanging = false;
        /// The user does not answer.
        bool isUndecided = false;
        /// What the user answers to keys: 0 yes, 1 no, 2 something else has failed.
        uint answer = 0;
    };

    /// Is there when it returns. Throws std::runtime_error when the bus refuses.
    explicit PortalStub(const std::string& busAddress, Behavior behavior);
    explicit PortalStub(const std::string& busAddress)
        : PortalStub(busAddress, Behavior())
    {
    }

    Behavior behavior;
    /// Runs after each call, and before its answer.
    std::function<void()> onCall = [] {};

    /// What was asked so far, in order, each as the method's name and what it is about.
    const QStringList& calls() const { return recorded; }
    void forgetCalls() { recorded.clear(); }
    /// What the desktop holds keys for; nothing when there is no such session.
    std::optional<PortalShortcuts> bound() const;
    /// A press and the release of the keys that the user has given to the shortcut. False when the
    /// desktop holds none for it.
    bool press(const QString& id);
    /// The press of a session that is not the program's own.
    void pressElsewhere(const QString& id);
    /// Takes all keys back.
    void closeSession();

private:
    struct Session {
        QString program;
        QString path;
        std::optional<PortalShortcuts> shortcuts;
    };

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    /// Nothing when there is no such method.
    std::optional<QDBusMessage> answerTo(const QDBusMessage& call);
    QDBusMessage registerProgram(const QDBusMessage& call);
    QDBusMessage version(const QDBusMessage& call) const;
    QDBusMessage createSession(const QDBusMessage& call);
    QDBusMessage bindShortcuts(const QDBusMessage& call);
    QDBusMessage close(const QDBusMessage& call);

    void respond(const QDBusMessage& call, const QVariantMap& options, uint code,
        const QVariantMap& results);
    void signal(const QString& program, const QString& path, const QString& interface,
        const QString& name, const QVariantList& arguments) const;
    void tell(const QString& name, const QString& path, const QString& id) const;

    BusConnection bus;
    QStringList recorded;
    QMap<QString, QString> programs;
    std::optional<Session> session;
};

} // namespace sablequill
