// SPDX-License-Identifier: MIT
#include "FileWatch.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace sablequill {

using namespace std::chrono_literals;

FileWatch::FileWatch(const std::filesystem::path& file)
    : name(file.filename())
    , descriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (::inotify_add_watch(descriptor, file.parent_path().c_str(), IN_MOVED_TO) < 0)
        throw std::runtime_error("the folder cannot be watched");
}

FileWatch::~FileWatch()
{
    ::close(descriptor);
}

void FileWatch::reset() const
{
    while (readEvents()) { }
}

Clock::time_point FileWatch::waitForReplacement() const
{
    const auto deadline = Clock::now() + 30s;
    while (Clock::now() < deadline) {
        pollfd readable{descriptor, POLLIN, 0};
        ::poll(&readable, 1, 100);
        const auto now = Clock::now();
        if (readEvents())
            return now;
    }
    throw std::runtime_error("the file is not written");
}

/// Whether one of them told of the file.
bool FileWatch::readEvents() const
{
    alignas(inotify_event) std::array<char, 4096> buffer{};
    const ssize_t length = ::read(descriptor, buffer.data(), buffer.size());
    bool isNamed = false;
    for (ssize_t at = 0; at < length;) {
        const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + at);
        isNamed = isNamed || name == event->name;
        at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
    }
    return isNamed;
}

} // namespace sablequill
