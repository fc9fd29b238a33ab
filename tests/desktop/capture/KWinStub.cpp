// SPDX-License-Identifier: MIT
#include "KWinStub.h"

#include <QDBusPendingCallWatcher>
#include <QFile>

#include <algorithm>
#include <stdexcept>

namespace sablequill {
namespace {

const QString service = QStringLiteral("org.kde.KWin");

/// The arguments that a script gives come before the function that takes the answer.
const QString prelude = QStringLiteral(R"(
function callDBus(service, path, iface, method, ...rest) {
    const answered = typeof rest[rest.length - 1] === "function" ? rest.pop() : undefined;
    script.send(service, path, iface, method, rest, answered);
}
)");

} // namespace

QList<QObject*> StubWorkspace::windowList() const
{
    QList<QObject*> list;
    for (const auto& window : windows)
        list.append(window.get());
    return list;
}

StubScript::StubScript(int number, const QString& file, const QString& name,
    const BusConnection& bus, StubWorkspace& workspace)
    : number(number)
    , file(file)
    , name(name)
    , bus(bus)
    , workspace(workspace)
{
}

void StubScript::run()
{
    QFile source(file);
    if (std::exchange(hasRun, true) || !source.exists() || !source.open(QIODevice::ReadOnly))
        return;
    engine = std::make_unique<QJSEngine>();
    QJSEngine::setObjectOwnership(this, QJSEngine::CppOwnership);
    QJSEngine::setObjectOwnership(&workspace, QJSEngine::CppOwnership);
    for (const auto& window : workspace.windows)
        QJSEngine::setObjectOwnership(window.get(), QJSEngine::CppOwnership);
    QJSValue global = engine->globalObject();
    global.setProperty(QStringLiteral("script"), engine->newQObject(this));
    global.setProperty(QStringLiteral("workspace"), engine->newQObject(&workspace));
    global.setProperty(
        QStringLiteral("QTimer"), engine->newQMetaObject(&ScriptTimer::staticMetaObject));
    engine->evaluate(prelude);
    const QJSValue result = engine->evaluate(QString::fromUtf8(source.readAll()), file);
    if (result.isError())
        throw std::runtime_error(result.toString().toStdString());
}

void StubScript::send(const QString& destination, const QString& path, const QString& interface,
    const QString& method, const QJSValue& arguments, const QJSValue& answered)
{
    QDBusMessage call = QDBusMessage::createMethodCall(destination, path, interface, method);
    call.setArguments(arguments.toVariant().toList());
    auto* pending = new QDBusPendingCallWatcher(bus.get().asyncCall(call), this);
    connect(pending, &QDBusPendingCallWatcher::finished, this, [this, pending, answered] {
        pending->deleteLater();
        const QDBusMessage reply = pending->reply();
        if (reply.type() != QDBusMessage::ReplyMessage || !answered.isCallable())
            return;
        QJSValueList values;
        for (const QVariant& value : reply.arguments())
            values.append(engine->toScriptValue(value));
        answered.call(values);
    });
}

KWinStub::KWinStub(const std::string& busAddress, bool canHide)
    : bus(busAddress)
    , canHide(canHide)
{
    QDBusConnection connection = bus.get();
    connection.registerVirtualObject(QStringLiteral("/Scripting"), this, QDBusConnection::SubPath);
    if (!connection.registerService(service))
        throw std::runtime_error("KWin's name is taken");
}

KWinStub::~KWinStub() = default;

StubWindow& KWinStub::addWindow(int pid, bool isPanel)
{
    auto& window = workspace.windows.emplace_back(canHide
            ? std::unique_ptr<StubWindow>(std::make_unique<CapturableWindow>(pid))
            : std::make_unique<StubWindow>(pid));
    QJSEngine::setObjectOwnership(window.get(), QJSEngine::CppOwnership);
    window->isPanel = isPanel;
    Q_EMIT workspace.windowAdded(window.get());
    return *window;
}

QStringList KWinStub::loadedScripts() const
{
    QStringList names;
    for (const auto& script : scripts)
        names.append(script->name);
    return names;
}

void KWinStub::loadForeignScript(const QString& name)
{
    load({}, name);
}

bool KWinStub::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    calls.append(message.member());
    if (isFrozen)
        held.emplace_back(message, connection);
    else
        answer(message, connection);
    return true;
}

void KWinStub::unfreeze()
{
    isFrozen = false;
    for (const auto& [message, connection] : std::exchange(held, {}))
        answer(message, connection);
}

void KWinStub::answer(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString name = message.arguments().value(1, message.arguments().value(0)).toString();
    QVariant result;
    if (message.member() == u"loadScript") {
        if (manner == Manner::keepsSilent)
            return;
        if (manner == Manner::refuses || message.signature() != u"ss") {
            connection.send(message.createErrorReply(QDBusError::AccessDenied, {}));
            return;
        }
        result = load(message.arguments().constFirst().toString(), name);
    } else if (message.member() == u"unloadScript") {
        result = loadedScripts().contains(name);
        // The script itself may be calling.
        QMetaObject::invokeMethod(
            this, [this, name] { unloadScript(name); }, Qt::QueuedConnection);
    } else if (StubScript* script = scriptAt(message.path())) {
        if (manner != Manner::runsNothing)
            script->run();
    } else {
        connection.send(message.createErrorReply(QDBusError::UnknownObject, {}));
        return;
    }
    connection.send(result.isValid() ? message.createReply(result) : message.createReply());
}

int KWinStub::load(const QString& file, const QString& name)
{
    if (loadedScripts().contains(name))
        return -1;
    const int number = static_cast<int>(scripts.size());
    files.append(file);
    auto& script =
        scripts.emplace_back(std::make_unique<StubScript>(number, file, name, bus, workspace));
    paths.try_emplace(number, script.get());
    return number;
}

void KWinStub::unloadScript(const QString& name)
{
    const auto found = std::find_if(
        scripts.begin(), scripts.end(), [&](const auto& script) { return script->name == name; });
    if (found == scripts.end())
        return;
    std::erase_if(paths, [&](const auto& path) { return path.second == found->get(); });
    scripts.erase(found);
}

StubScript* KWinStub::scriptAt(const QString& path) const
{
    const auto found = paths.find(path.section(QStringLiteral("/Script"), -1).toInt());
    return found == paths.end() ? nullptr : found->second;
}

} // namespace sablequill
