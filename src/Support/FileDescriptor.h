// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>

#include <unistd.h>

namespace sablequill {

/// Owns an open file descriptor, or none when it holds -1.
class FileDescriptor {
public:
    explicit FileDescriptor(int fd)
        : fd(fd)
    {
    }
    ~FileDescriptor()
    {
        if (isOpen())
            ::close(fd);
    }

    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;

    bool isOpen() const { return fd >= 0; }
    int get() const { return fd; }

private:
    const int fd;
};

/// The result of a system call that is made again as long as a signal interrupts it.
template <typename Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

} // namespace sablequill
