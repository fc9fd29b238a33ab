// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>

#include <functional>
#include <optional>

namespace sablequill {

/// KWin's scripting service on the session bus. Every call returns at once; what is sent arrives in
/// the order of the calls. A KWin that is busy is waited for as long as it takes: while it does not
/// answer, it draws nothing either.
class KWinScripting : public QObject {
    Q_OBJECT

public:
    explicit KWinScripting(const QDBusConnection& bus);

    /// Loads a script without running it: its number, or nothing when KWin refuses or goes. The
    /// file is read when the script runs.
    void load(const QString& file, const QString& name,
        std::function<void(std::optional<int> number)> loaded);
    /// `answered` says nothing of whether it ran, nor which script did: after some were unloaded
    /// KWin may give a number that another one still has.
    void run(int number, std::function<void()> answered);
    void unload(const QString& name);

private:
    QDBusConnection bus;
};

} // namespace sablequill
