// SPDX-License-Identifier: MIT
#include "UnreadableFile.h"

#include "FileDescriptor.h"
#include "Files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <string>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

enum class Outcome { kept, nameIsTaken, failed };

constexpr mode_t userOnly = S_IRUSR | S_IWUSR;

fs::path nameFor(const fs::path& file, int number)
{
    fs::path name = file.stem();
    name += ".unreadable";
    if (number > 1) {
        name += '.';
        name += std::to_string(number);
    }
    name += file.extension();
    return file.parent_path() / name;
}

/// A second name for the same bytes: nothing to read, nothing to run out of.
Outcome keepByLink(const fs::path& source, const fs::path& kept)
{
    if (::link(source.c_str(), kept.c_str()) != 0)
        return errno == EEXIST ? Outcome::nameIsTaken : Outcome::failed;
    if (::chmod(kept.c_str(), userOnly) == 0)
        return Outcome::kept;
    ::unlink(kept.c_str());
    return Outcome::failed;
}

Outcome keepByCopy(const fs::path& source, const fs::path& kept)
{
    const auto bytes = Files::read(source);
    if (!bytes)
        return Outcome::failed;
    const FileDescriptor target(
        ::open(kept.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, userOnly));
    if (!target.isOpen())
        return errno == EEXIST ? Outcome::nameIsTaken : Outcome::failed;
    const std::array chunks{QByteArrayView(*bytes)};
    if (Files::write(target.get(), chunks)
        && uninterrupted([&] { return ::fdatasync(target.get()); }) == 0)
        return Outcome::kept;
    ::unlink(kept.c_str());
    return Outcome::failed;
}

bool isSameFile(const fs::path& one, const fs::path& other)
{
    std::error_code error;
    return fs::equivalent(one, other, error);
}

Outcome keep(const fs::path& source, const fs::path& kept)
{
    const Outcome linked = keepByLink(source, kept);
    if (linked == Outcome::nameIsTaken && isSameFile(source, kept))
        return Outcome::kept;
    return linked == Outcome::failed ? keepByCopy(source, kept) : linked;
}

} // namespace

bool keepUnreadableFile(const fs::path& file)
{
    if (!Files::exists(file))
        return true;
    const auto source = Files::behindLinks(file);
    if (!source)
        return false;
    Outcome outcome = Outcome::nameIsTaken;
    for (int number = 1; outcome == Outcome::nameIsTaken; ++number)
        outcome = keep(*source, nameFor(file, number));
    return outcome == Outcome::kept;
}

} // namespace sablequill
