// SPDX-License-Identifier: MIT
#include "HyprlandSocket.h"

#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

#include <utility>

namespace sablequill {
namespace {

/// Far more than a list of all windows takes.
constexpr qsizetype longestAnswer = 4 << 20;

/// One request on a connection of its own; deletes itself.
class Request final : public QObject {
public:
    Request(QObject* parent, const QByteArray& text, std::chrono::milliseconds timeout,
        std::function<void(HyprlandSocket::Answer)> answered)
        : QObject(parent)
        , text(text)
        , answered(std::move(answered))
    {
        connect(&connection, &QLocalSocket::connected, this, [this] { send(); });
        connect(&connection, &QLocalSocket::readyRead, this, [this] { read(); });
        connect(&connection, &QLocalSocket::disconnected, this, [this] { finish(); });
        connect(&connection, &QLocalSocket::errorOccurred, this, [this] { finish(); });
        deadline.setSingleShot(true);
        connect(&deadline, &QTimer::timeout, this, [this] { finish(); });
        deadline.start(timeout);
    }

    ~Request() override
    {
        // The connection ends now, and whoever asked may be ending as well.
        isFinished = true;
    }

    void start(const QString& path) { connection.connectToServer(path); }

private:
    void send()
    {
        connection.write(text);
        connection.flush();
    }

    void read()
    {
        answer += connection.readAll();
        if (answer.size() > longestAnswer)
            finish();
    }

    void finish()
    {
        if (std::exchange(isFinished, true))
            return;
        deleteLater();
        answered(answer.isEmpty() ? std::nullopt : std::optional(answer));
    }

    const QByteArray text;
    const std::function<void(HyprlandSocket::Answer)> answered;
    QByteArray answer;
    bool isFinished = false;
    QTimer deadline;
    QLocalSocket connection;
};

} // namespace

HyprlandSocket::HyprlandSocket(const QString& path, std::chrono::milliseconds timeout)
    : path(path)
    , timeout(timeout)
{
}

void HyprlandSocket::ask(
    const QByteArray& text, const QObject* asker, std::function<void(Answer)> answered)
{
    auto* request = new Request(this, text, timeout,
        [asker = QPointer(asker), answered = std::move(answered)](const Answer& answer) {
            if (asker)
                answered(answer);
        });
    // Not from within this call: a socket that is gone says so at once.
    QMetaObject::invokeMethod(
        request, [this, request] { request->start(path); }, Qt::QueuedConnection);
}

} // namespace sablequill
