// SPDX-License-Identifier: MIT
#include "InstanceFolder.h"

#include "Files.h"
#include "UserFolders.h"

#include <QByteArray>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/utsname.h>

#include <optional>
#include <string>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

/// Ours, and nobody else can have put anything into it.
bool isOurs(const struct stat& status)
{
    return status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

/// $XDG_RUNTIME_DIR stays as it was when another user's shell is entered.
std::optional<fs::path> runtimeFolder()
{
    auto folder = UserFolders::in("XDG_RUNTIME_DIR");
    struct stat status = {};
    const bool isUsable =
        folder && ::stat(folder->c_str(), &status) == 0 && S_ISDIR(status.st_mode);
    if (!isUsable || !isOurs(status))
        folder.reset();
    return folder;
}

/// "host:0.1" is another screen of "host:0".
QByteArray displayWithoutScreen()
{
    QByteArray display = qgetenv("DISPLAY");
    const auto dot = display.indexOf('.', display.lastIndexOf(':') + 1);
    if (display.contains(':') && dot >= 0)
        display.truncate(dot);
    return display;
}

std::string displayName()
{
    return "display-" + displayWithoutScreen().toPercentEncoding().toStdString();
}

std::string machineName()
{
    utsname names = {};
    ::uname(&names);
    return "machine-" + QByteArray(names.nodename).toPercentEncoding().toStdString();
}

int openPrivate(const fs::path& folder)
{
    Files::createPrivateFolder(folder);
    const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    struct stat status = {};
    // Where others could only read or enter, that is put right.
    if (fd >= 0 && ::fstat(fd, &status) == 0 && isOurs(status) && ::fchmod(fd, S_IRWXU) == 0)
        return fd;
    if (fd >= 0)
        ::close(fd);
    return -1;
}

} // namespace

std::vector<fs::path> InstanceFolder::candidates()
{
    std::vector<fs::path> folders;
    if (const auto runtime = runtimeFolder())
        folders.push_back(*runtime / "sablequill" / displayName());
    if (const auto state = UserFolders::in("XDG_STATE_HOME", ".local/state"))
        folders.push_back(*state / "sablequill" / machineName() / displayName());
    return folders;
}

InstanceFolder::InstanceFolder(const fs::path& folder)
    : folder(openPrivate(folder))
    , lockFile(::openat(
          this->folder.get(), "lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR))
{
}

InstanceFolder::Lock InstanceFolder::tryLock() const
{
    if (uninterrupted([&] { return ::flock(lockFile.get(), LOCK_EX | LOCK_NB); }) == 0)
        return Lock::taken;
    return errno == EWOULDBLOCK ? Lock::heldByAnother : Lock::impossible;
}

} // namespace sablequill
