// SPDX-License-Identifier: MIT
#include "AutostartLoginItem.h"

#include "AtomicFile.h"
#include "AutostartEntry.h"
#include "Constants.h"
#include "Files.h"
#include "UserFolders.h"

#include <array>
#include <cerrno>

#include <unistd.h>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

/// Asked at the start, because the link changes when an update replaces the program.
fs::path runningProgram()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

fs::path entryFile()
{
    const auto configuration = UserFolders::in("XDG_CONFIG_HOME", ".config");
    if (!configuration)
        return {};
    return *configuration / "autostart" / (Constants::bundleIdentifier.toStdString() + ".desktop");
}

} // namespace

AutostartLoginItem::AutostartLoginItem()
    : AutostartLoginItem(runningProgram())
{
}

AutostartLoginItem::AutostartLoginItem(const fs::path& program)
    : file(entryFile())
    , entry(autostartEntry(program))
{
    if (!file.empty())
        AtomicFile(file).removeStaleTemporaries();
}

bool AutostartLoginItem::registerItem()
{
    if (file.empty())
        return false;
    if (Files::read(file) == entry)
        return true;
    Files::createPrivateFolder(file.parent_path());
    const std::array<QByteArrayView, 1> chunks = {entry};
    return AtomicFile(file).replace(chunks);
}

bool AutostartLoginItem::unregisterItem()
{
    if (file.empty())
        return false;
    return ::unlink(file.c_str()) == 0 || errno == ENOENT || errno == ENOTDIR;
}

} // namespace sablequill
