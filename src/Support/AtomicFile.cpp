// SPDX-License-Identifier: MIT
#include "AtomicFile.h"

#include "FileDescriptor.h"
#include "Files.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

constexpr std::string_view randomPart = "XXXXXX";
constexpr std::string_view suffix = ".tmp";

std::string prefixFor(const fs::path& file)
{
    return "." + file.filename().native() + ".";
}

std::string templateFor(const fs::path& file)
{
    return file.parent_path() / prefixFor(file).append(randomPart).append(suffix);
}

bool isTemporaryOf(const fs::path& file, const fs::path& candidate)
{
    const std::string name = candidate.filename();
    const std::string prefix = prefixFor(file);
    return name.size() == prefix.size() + randomPart.size() + suffix.size()
        && name.starts_with(prefix) && name.ends_with(suffix);
}

/// A writer holds this lock as long as it lives, so that nobody takes its file for a stale one.
bool lock(const FileDescriptor& file)
{
    return uninterrupted([&] { return ::flock(file.get(), LOCK_EX | LOCK_NB); }) == 0;
}

/// A new file beside its target; removed unless it took the target's place.
class Temporary {
public:
    explicit Temporary(const fs::path& target)
        : path(templateFor(target))
        , descriptor(::mkostemps(path.data(), static_cast<int>(suffix.size()), O_CLOEXEC))
    {
    }
    ~Temporary()
    {
        if (descriptor.isOpen() && !isInPlace)
            ::unlink(path.c_str());
    }

    Temporary(const Temporary&) = delete;
    Temporary& operator=(const Temporary&) = delete;

    bool write(std::span<const QByteArrayView> chunks)
    {
        if (!descriptor.isOpen())
            return false;
        // Where there are no locks the file is written all the same.
        lock(descriptor);
        return Files::write(descriptor.get(), chunks)
            && uninterrupted([&] { return ::fdatasync(descriptor.get()); }) == 0;
    }

    bool takePlaceOf(const fs::path& target)
    {
        isInPlace = ::rename(path.c_str(), target.c_str()) == 0;
        return isInPlace;
    }

private:
    std::string path;
    FileDescriptor descriptor;
    bool isInPlace = false;
};

bool isReplaceable(const fs::path& target)
{
    std::error_code error;
    const fs::file_type type = fs::symlink_status(target, error).type();
    return type == fs::file_type::regular || type == fs::file_type::not_found;
}

void removeIfStale(const fs::path& temporary)
{
    const FileDescriptor descriptor(
        ::open(temporary.c_str(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (descriptor.isOpen() && lock(descriptor))
        ::unlink(temporary.c_str());
}

} // namespace

AtomicFile::AtomicFile(fs::path file)
    : file(std::move(file))
{
}

bool AtomicFile::replace(std::span<const QByteArrayView> chunks) const
{
    const auto target = Files::behindLinks(file);
    if (!target || !isReplaceable(*target))
        return false;
    Temporary temporary(*target);
    return temporary.write(chunks) && temporary.takePlaceOf(*target);
}

void AtomicFile::removeStaleTemporaries() const
{
    const auto target = Files::behindLinks(file);
    if (!target)
        return;
    std::error_code error;
    for (fs::directory_iterator entry(target->parent_path(), error), end; !error && entry != end;
         entry.increment(error)) {
        if (isTemporaryOf(*target, entry->path()))
            removeIfStale(entry->path());
    }
}

} // namespace sablequill
