// SPDX-License-Identifier: MIT
#include "Files.h"

#include "FileDescriptor.h"
#include "LargePages.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

namespace fs = std::filesystem;

namespace sablequill::Files {
namespace {

/// As many as the kernel follows.
constexpr int maximumLinks = 40;

std::vector<iovec> vectorsOf(std::span<const QByteArrayView> chunks)
{
    std::vector<iovec> vectors;
    vectors.reserve(chunks.size());
    for (const QByteArrayView chunk : chunks) {
        if (!chunk.isEmpty())
            vectors.push_back(
                {const_cast<char*>(chunk.data()), static_cast<std::size_t>(chunk.size())});
    }
    return vectors;
}

/// What is left to write; the first of it is shortened where it was written in part.
std::span<iovec> withoutWritten(std::span<iovec> vectors, std::size_t written)
{
    while (!vectors.empty() && written >= vectors.front().iov_len) {
        written -= vectors.front().iov_len;
        vectors = vectors.subspan(1);
    }
    if (written > 0) {
        iovec& partial = vectors.front();
        partial.iov_base = static_cast<char*>(partial.iov_base) + written;
        partial.iov_len -= written;
    }
    return vectors;
}

} // namespace

bool exists(const fs::path& path)
{
    std::error_code error;
    return fs::status(path, error).type() != fs::file_type::not_found;
}

std::optional<QByteArray> read(const fs::path& file)
{
    // Opening must not wait for the other end of a pipe.
    const FileDescriptor source(
        uninterrupted([&] { return ::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); }));
    struct stat status = {};
    if (!source.isOpen() || ::fstat(source.get(), &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_size > largestFile)
        return {};
    QByteArray bytes;
    bytes.reserve(static_cast<qsizetype>(status.st_size) + spareBytes);
    LargePages::use(bytes.data(), static_cast<std::size_t>(bytes.capacity()));
    bytes.resize(static_cast<qsizetype>(status.st_size));
    qsizetype size = 0;
    while (size < bytes.size()) {
        const auto count = uninterrupted([&] {
            return ::read(
                source.get(), bytes.data() + size, static_cast<std::size_t>(bytes.size() - size));
        });
        if (count < 0)
            return {};
        if (count == 0)
            break;
        size += count;
    }
    bytes.truncate(size);
    std::memset(bytes.data() + size, 0, spareBytes);
    return bytes;
}

bool write(int fd, std::span<const QByteArrayView> chunks)
{
    std::vector<iovec> vectors = vectorsOf(chunks);
    for (std::span<iovec> rest(vectors); !rest.empty();) {
        const int count = static_cast<int>(std::min<std::size_t>(rest.size(), IOV_MAX));
        const auto written = uninterrupted([&] { return ::writev(fd, rest.data(), count); });
        if (written <= 0)
            return false;
        rest = withoutWritten(rest, static_cast<std::size_t>(written));
    }
    return true;
}

void createPrivateFolder(const fs::path& folder)
{
    fs::path path;
    for (const fs::path& part : folder) {
        path /= part;
        ::mkdir(path.c_str(), S_IRWXU);
    }
}

std::optional<fs::path> behindLinks(fs::path path)
{
    for (int links = 0; links <= maximumLinks; ++links) {
        std::error_code error;
        if (!fs::is_symlink(path, error))
            return path;
        const fs::path target = fs::read_symlink(path, error);
        if (error)
            return {};
        path = path.parent_path() / target;
    }
    return {};
}

} // namespace sablequill::Files
