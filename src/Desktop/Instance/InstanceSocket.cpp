// SPDX-License-Identifier: MIT
#include "InstanceSocket.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cstdio>

namespace sablequill {
namespace {

constexpr const char* name = "socket";

/// Through the open folder: a socket's path may be no longer than a hundred bytes or so, and this
/// folder has been looked at.
sockaddr_un addressIn(int folder)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::snprintf(address.sun_path, sizeof address.sun_path, "/proc/self/fd/%d/%s", folder, name);
    return address;
}

/// Bind or connect.
template <typename Call> int withAddress(Call call, const FileDescriptor& socket, int folder)
{
    const sockaddr_un address = addressIn(folder);
    return call(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address);
}

int newSocket()
{
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
}

/// Whether the process at the other end is this user's.
bool isOwnUser(const FileDescriptor& socket)
{
    ucred peer = {};
    socklen_t size = sizeof peer;
    return ::getsockopt(socket.get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0
        && peer.uid == ::geteuid();
}

} // namespace

InstanceSocket::InstanceSocket(int folder)
    : folder(folder)
    , socket(newSocket())
    , listening(listen())
{
}

InstanceSocket::~InstanceSocket()
{
    if (listening)
        ::unlinkat(folder, name, 0);
}

bool InstanceSocket::listen() const
{
    ::unlinkat(folder, name, 0);
    // The file gets the mode that the socket has when it is bound.
    return ::fchmod(socket.get(), S_IRUSR | S_IWUSR) == 0
        && withAddress(::bind, socket, folder) == 0 && ::listen(socket.get(), SOMAXCONN) == 0;
}

bool InstanceSocket::answerAll() const
{
    constexpr char answer = '!';
    bool isCalled = false;
    while (true) {
        const FileDescriptor caller(uninterrupted([&] {
            return ::accept4(socket.get(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        }));
        if (!caller.isOpen())
            return isCalled;
        if (!isOwnUser(caller))
            continue;
        isCalled = true;
        // Whoever has not waited needs no answer.
        ::send(caller.get(), &answer, sizeof answer, MSG_NOSIGNAL);
    }
}

bool InstanceSocket::call(int folder, std::chrono::milliseconds patience)
{
    const FileDescriptor socket(newSocket());
    // A full queue holds others who say the same.
    if (withAddress(::connect, socket, folder) != 0)
        return errno == EAGAIN;
    if (!isOwnUser(socket))
        return false;
    pollfd answered = {socket.get(), POLLIN, 0};
    const int timeout = static_cast<int>(patience.count());
    if (uninterrupted([&] { return ::poll(&answered, 1, timeout); }) == 0)
        return true;
    char answer = 0;
    return ::recv(socket.get(), &answer, sizeof answer, 0) == sizeof answer;
}

} // namespace sablequill
