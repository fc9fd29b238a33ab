// SPDX-License-Identifier: MIT
#pragma once

#include "BusConnection.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QJSEngine>
#include <QTimer>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace sablequill {

/// A window as scripts of KWin see it.
class StubWindow : public QObject {
    Q_OBJECT
    Q_PROPERTY(int pid MEMBER pid CONSTANT)
    Q_PROPERTY(bool criticalNotification MEMBER isPanel CONSTANT)
    Q_PROPERTY(bool onAllDesktops MEMBER isOnAllDesktops)

public:
    explicit StubWindow(int pid)
        : pid(pid)
    {
    }
    virtual bool isHidden() const { return false; }

    int pid;
    bool isPanel = false;
    bool isOnAllDesktops = false;
};

/// The same in a KWin that can leave windows out of captures.
class CapturableWindow final : public StubWindow {
    Q_OBJECT
    Q_PROPERTY(bool excludeFromCapture MEMBER isExcluded)

public:
    using StubWindow::StubWindow;
    bool isHidden() const override { return isExcluded; }

    bool isExcluded = false;
};

/// What scripts know as `workspace`.
class StubWorkspace final : public QObject {
    Q_OBJECT

public:
    Q_INVOKABLE QList<QObject*> windowList() const;

    std::vector<std::unique_ptr<StubWindow>> windows;

Q_SIGNALS:
    void windowAdded(QObject* window);
};

/// What scripts know as QTimer.
class ScriptTimer final : public QTimer {
    Q_OBJECT

public:
    Q_INVOKABLE explicit ScriptTimer(QObject* parent = nullptr)
        : QTimer(parent)
    {
    }
};

/// A loaded script in an engine of its own, and what it may call.
class StubScript final : public QObject {
    Q_OBJECT

public:
    StubScript(int number, const QString& file, const QString& name, const BusConnection& bus,
        StubWorkspace& workspace);

    void run();

    Q_INVOKABLE void send(const QString& service, const QString& path, const QString& interface,
        const QString& method, const QJSValue& arguments, const QJSValue& answered);

    const int number;
    const QString file;
    const QString name;

private:
    const BusConnection& bus;
    StubWorkspace& workspace;
    bool hasRun = false;
    std::unique_ptr<QJSEngine> engine;
};

/// KWin's scripting service on the bus, as far as the program uses it: it runs the scripts. A
/// script's number is how many there are when it is loaded, and the path of a number belongs to the
/// script that had it first.
class KWinStub final : public QDBusVirtualObject {
    Q_OBJECT

public:
    /// Takes the name of KWin. Throws std::runtime_error when the bus refuses.
    explicit KWinStub(const std::string& busAddress, bool canHide = true);
    ~KWinStub() override;

    /// A window appears: a new one, as each showing of a window is.
    StubWindow& addWindow(int pid, bool isPanel = false);
    QStringList loadedScripts() const;
    /// Loads a script of somebody else's, which does nothing.
    void loadForeignScript(const QString& name);
    void unloadScript(const QString& name);

    /// How the next calls to load a script are answered.
    enum class Manner { normal, refuses, keepsSilent, runsNothing };
    Manner manner = Manner::normal;
    /// Does nothing that it is called for until unfreeze().
    bool isFrozen = false;
    void unfreeze();

    /// The calls that came, by member.
    QStringList calls;
    QStringList files;
    std::vector<std::unique_ptr<StubWindow>>& windows() { return workspace.windows; }

private:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
    void answer(const QDBusMessage& message, const QDBusConnection& connection);
    int load(const QString& file, const QString& name);
    StubScript* scriptAt(const QString& path) const;

    BusConnection bus;
    const bool canHide;
    StubWorkspace workspace;
    std::vector<std::unique_ptr<StubScript>> scripts;
    /// Which script answers at the path of a number.
    std::map<int, StubScript*> paths;
    std::vector<std::pair<QDBusMessage, QDBusConnection>> held;
};

} // namespace sablequill
