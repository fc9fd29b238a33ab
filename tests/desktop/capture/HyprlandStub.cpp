// SPDX-License-Identifier: MIT
#include "HyprlandStub.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

namespace sablequill {
namespace {

struct Form {
    const char* request;
    const char* property;
};

/// What each version understands, to the character.
constexpr Form forms[]{
    {R"re(^dispatch hl\.dsp\.window\.set_prop\(\{ prop = "no_screen_share", value = "(\w+)", window = "([\w:]+)" \}\)$)re",
        "no_screen_share"},
    {R"(^dispatch setprop ([\w:]+) no_screen_share (\w+)$)", "no_screen_share"},
    {R"(^setprop ([\w:]+) noscreenshare (\w+)$)", "noscreenshare"},
};

} // namespace

HyprlandStub::HyprlandStub(const QString& path)
{
    if (!server.listen(path))
        throw std::runtime_error(server.errorString().toStdString());
    connect(&server, &QLocalServer::newConnection, this, &HyprlandStub::serve);
}

void HyprlandStub::serve()
{
    QLocalSocket* connection = server.nextPendingConnection();
    connect(connection, &QLocalSocket::readyRead, this, [this, connection] {
        const QByteArray request = connection->readAll();
        requests.append(request);
        if (isFrozen)
            waiting.emplace_back(connection, request);
        else
            answer(*connection, request);
    });
    connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
}

void HyprlandStub::unfreeze()
{
    isFrozen = false;
    for (const auto& [connection, request] : std::exchange(waiting, {}))
        if (connection)
            answer(*connection, request);
}

void HyprlandStub::answer(QLocalSocket& connection, const QByteArray& request)
{
    connection.write(instead ? *instead : answerTo(request));
    connection.disconnectFromServer();
}

QByteArray HyprlandStub::answerTo(const QByteArray& request)
{
    if (request == "j/clients")
        return listsWindows ? list() : QByteArray("unknown request");
    if (form < 0)
        return "unknown request";
    const Form& known = forms[form];
    const QRegularExpression setting(QString::fromLatin1(known.request));
    if (const auto match = setting.match(QString::fromLatin1(request)); match.hasMatch()) {
        const int selector = form == 0 ? 2 : 1;
        return set(match.captured(selector).toLatin1(),
            match.captured(3 - selector) == QStringLiteral("1"));
    }
    static const QRegularExpression newPin(
        QStringLiteral(R"re(^dispatch hl\.dsp\.window\.pin\(\{ window = "([\w:]+)" \}\)$)re"));
    static const QRegularExpression oldPin(QStringLiteral(R"(^dispatch pin ([\w:]+)$)"));
    const auto& pin = form == 0 ? newPin : oldPin;
    if (const auto match = pin.match(QString::fromLatin1(request)); match.hasMatch())
        return turnPin(match.captured(1).toLatin1());
    static const QRegularExpression newFocus(
        QStringLiteral(R"re(^dispatch hl\.dsp\.focus\(\{ window = "([\w:]+)" \}\)$)re"));
    static const QRegularExpression oldFocus(QStringLiteral(R"(^dispatch focuswindow ([\w:]+)$)"));
    const auto& focusing = form == 0 ? newFocus : oldFocus;
    if (const auto match = focusing.match(QString::fromLatin1(request)); match.hasMatch())
        return focus(match.captured(1).toLatin1());
    const QByteArrayList words = request.split(' ');
    if (words.size() == 3 && words[0] == "getprop" && words[2] == known.property)
        return hidden.contains(addressOf(words[1])) ? "true" : "false";
    return "error: invalid dispatcher";
}

QByteArray HyprlandStub::list()
{
    QJsonArray all;
    for (const HyprlandWindow& window : windows)
        all.append(QJsonObject{{QStringLiteral("address"), QString::fromLatin1(window.address)},
            {QStringLiteral("pid"), window.pid},
            {QStringLiteral("at"), QJsonArray{window.frame.x(), window.frame.y()}},
            {QStringLiteral("size"), QJsonArray{window.frame.width(), window.frame.height()}},
            {QStringLiteral("title"), QString::fromUtf8(window.title)},
            {QStringLiteral("pinned"), window.isPinned}});
    const auto isGoing = [this](const HyprlandWindow& window) { return window.address == going; };
    windows.erase(std::remove_if(windows.begin(), windows.end(), isGoing), windows.end());
    return QJsonDocument(all).toJson();
}

QByteArray HyprlandStub::set(const QByteArray& selector, bool isHidden)
{
    const QByteArray address = addressOf(selector);
    if (address.isEmpty() || closing.contains(address))
        return "error: window not found";
    if (!obeys)
        return "ok";
    if (isHidden)
        hidden.insert(address);
    else
        hidden.remove(address);
    return "ok";
}

QByteArray HyprlandStub::turnPin(const QByteArray& selector)
{
    const QByteArray address = addressOf(selector);
    for (HyprlandWindow& window : windows)
        if (window.address == address) {
            window.isPinned = !window.isPinned;
            return "ok";
        }
    return "error: window not found";
}

QByteArray HyprlandStub::focus(const QByteArray& selector)
{
    const QByteArray address = addressOf(selector);
    for (const HyprlandWindow& window : windows)
        if (window.address == address) {
            focused = address;
            return "ok";
        }
    return "error: window not found";
}

QByteArray HyprlandStub::addressOf(const QByteArray& selector) const
{
    for (const HyprlandWindow& window : windows)
        if (selector == "address:" + window.address
            || selector == "pid:" + QByteArray::number(window.pid))
            return window.address;
    return {};
}

} // namespace sablequill
