// SPDX-License-Identifier: MIT
#pragma once

#include "KWinScripting.h"

#include <QStringList>
#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

class QTemporaryFile;

namespace sablequill {

/// One script of ours in KWin, from its loading to its end: it does one task, once or for as long
/// as this object lives. What reached KWin is confirmed by the script itself, which calls this
/// object on the bus.
class KWinJob final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "io.github.sablequill.KWinJob")

public:
    enum class Task {
        /// Captures leave the program's windows out.
        hide,
        /// Captures show them again.
        show,
        /// The panels are on every desktop.
        pin,
    };

    enum class Result {
        /// All windows are hidden, and those that come will be.
        hidden,
        /// Captures show all windows, and KWin could hide them.
        shown,
        /// The panels that are there are on every desktop, and those that come will be.
        pinned,
        /// There is no window in the session yet; another result follows with the first one.
        waiting,
        /// KWin runs the script and cannot do that.
        unsupported,
        /// KWin refuses, or nothing is heard of the script.
        failed,
    };

    /// Waits that long for a script's confirmation once KWin says that it ran, a few times over.
    KWinJob(const QDBusConnection& bus, Task task, std::chrono::milliseconds confirmationTime);
    /// Takes the script away. What it said of the windows stays.
    ~KWinJob() override;

    void start();

Q_SIGNALS:
    void finished(sablequill::KWinJob::Result result);

public Q_SLOTS:
    /// The script's call.
    Q_SCRIPTABLE Q_NOREPLY void Report(const QString& name, const QString& state);

private:
    void loaded(std::optional<int> number);
    void awaitReport();
    void attemptAgain();
    void fail();
    bool writeScript(const QString& name);
    QByteArray optionsFor(const QString& name) const;

    QDBusConnection bus;
    KWinScripting kwin;
    const Task task;
    const QString path;
    QTimer confirmation;
    /// Of all attempts: only while the earlier ones are loaded does the next get another number.
    QStringList names;
    /// KWin reads a file when its script runs.
    std::vector<std::unique_ptr<QTemporaryFile>> files;
};

} // namespace sablequill
