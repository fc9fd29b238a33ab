// SPDX-License-Identifier: MIT
#pragma once

#include <signal.h>
#include <sys/resource.h>

namespace sablequill {

/// Lets no file of this process grow beyond some bytes, as a full disk would, for as long as this
/// object lives.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
        : oldHandler(::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &oldLimit);
        const rlimit limit{bytes, oldLimit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &oldLimit);
        ::signal(SIGXFSZ, oldHandler);
    }

    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit oldLimit = {};
    void (*oldHandler)(int);
};

} // namespace sablequill
