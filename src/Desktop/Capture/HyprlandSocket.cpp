// SPDX-License-Identifier: MIT
#include "HyprlandSocket.h"

#include "FileDescriptor.h"
#include "UserFolders.h"

#include <QFile>
#include <QPointer>
#include <QSocketNotifier>
#include <QTimer>

#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// Far more than a list of all windows takes.
constexpr qsizetype longestAnswer = 4 << 20;

/// Whether the call only has to be made again later.
bool isTooEarly()
{
    return errno == EAGAIN || errno == EINPROGRESS;
}

/// One request on a connection of its own; deletes itself. Made of the system's own calls: the
/// toolkit's network library would have every start load what it needs for the Internet.
class Request final : public QObject {
public:
    Request(QObject* parent, const QByteArray& text,
        std::function<void(HyprlandSocket::Answer)> answered)
        : QObject(parent)
        , unsent(text)
        , answered(std::move(answered))
    {
        connect(&writable, &QSocketNotifier::activated, this, [this] { send(); });
        connect(&readable, &QSocketNotifier::activated, this, [this] { read(); });
        readable.setSocket(socket.get());
        writable.setSocket(socket.get());
    }

    ~Request() override
    {
        // The connection ends now, and whoever asked may be ending as well.
        isFinished = true;
    }

    void start(const QString& path)
    {
        if (isFinished)
            return;
        if (connectTo(QFile::encodeName(path))) {
            readable.setEnabled(true);
            send();
        } else if (isTooEarly()) {
            // As many others wait for the server as it lets wait.
            QTimer::singleShot(20ms, this, [this, path] { start(path); });
        } else {
            finish();
        }
    }

private:
    bool connectTo(const QByteArray& path)
    {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        errno = ENAMETOOLONG;
        if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path))
            return false;
        std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
        return socket.isOpen() && uninterrupted([&] {
            return ::connect(
                socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
        }) == 0;
    }

    void send()
    {
        const auto sent = uninterrupted([&] {
            return ::send(socket.get(), unsent.constData(), static_cast<std::size_t>(unsent.size()),
                MSG_NOSIGNAL);
        });
        if (sent < 0 && !isTooEarly()) {
            finish();
            return;
        }
        unsent.remove(0, std::max<qsizetype>(sent, 0));
        writable.setEnabled(!unsent.isEmpty());
    }

    void read()
    {
        std::array<char, 16384> buffer{};
        const auto size =
            uninterrupted([&] { return ::recv(socket.get(), buffer.data(), buffer.size(), 0); });
        if (size < 0 && isTooEarly())
            return;
        answer.append(buffer.data(), std::max<qsizetype>(size, 0));
        if (size <= 0 || answer.size() > longestAnswer)
            finish();
    }

    void finish()
    {
        if (std::exchange(isFinished, true))
            return;
        readable.setEnabled(false);
        writable.setEnabled(false);
        deleteLater();
        answered(answer.isEmpty() ? std::nullopt : std::optional(answer));
    }

    QByteArray unsent;
    const std::function<void(HyprlandSocket::Answer)> answered;
    QByteArray answer;
    bool isFinished = false;
    const FileDescriptor socket{::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0)};
    QSocketNotifier readable{QSocketNotifier::Read};
    QSocketNotifier writable{QSocketNotifier::Write};
};

} // namespace

HyprlandSocket::HyprlandSocket(const QString& path)
    : path(path)
{
}

std::optional<QString> HyprlandSocket::ofSession()
{
    const auto runtime = UserFolders::in("XDG_RUNTIME_DIR");
    const QByteArray signature = qgetenv("HYPRLAND_INSTANCE_SIGNATURE");
    if (!runtime || signature.isEmpty())
        return std::nullopt;
    const auto path = *runtime / "hypr" / signature.toStdString() / ".socket.sock";
    const QString name = QFile::decodeName(path.c_str());
    return QFile::exists(name) ? std::optional(name) : std::nullopt;
}

void HyprlandSocket::ask(
    const QByteArray& text, const QObject* asker, std::function<void(Answer)> answered)
{
    auto* request = new Request(this, text,
        [asker = QPointer(asker), answered = std::move(answered)](const Answer& answer) {
            if (asker)
                answered(answer);
        });
    // Not from within this call: a socket that is gone says so at once.
    QMetaObject::invokeMethod(
        request, [this, request] { request->start(path); }, Qt::QueuedConnection);
}

} // namespace sablequill
