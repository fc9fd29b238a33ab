// SPDX-License-Identifier: MIT
//
// Stands before the C library and makes the calls fail that the plan names. Everything in here may
// be called at any time, also before main() and by the memory allocator: no allocation, no locale.
#include "FaultPlan.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

using sablequill::FaultPlan;
using sablequill::FaultyCall;

FaultPlan* planInFile()
{
    const char* path = std::getenv(FaultPlan::variable);
    if (path == nullptr)
        return nullptr;
    const auto file = static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, O_RDWR | O_CLOEXEC));
    void* memory = ::mmap(nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    ::syscall(SYS_close, file);
    return memory == MAP_FAILED ? nullptr : static_cast<FaultPlan*>(memory);
}

/// The function that this one hides.
template <typename Function> Function* hidden(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

bool isBelowFolder(const FaultPlan& plan, std::string_view path)
{
    const std::string_view folder(plan.folder.data());
    return !folder.empty() && path.starts_with(folder);
}

bool concerns(const FaultPlan& plan, const char* path)
{
    return isBelowFolder(plan, path);
}

bool concerns(const FaultPlan& plan, int file)
{
    std::array<char, 64> link{};
    std::array<char, 1024> path{};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", file);
    const auto size = ::syscall(SYS_readlink, link.data(), path.data(), path.size());
    return size > 0 && isBelowFolder(plan, {path.data(), static_cast<std::size_t>(size)});
}

/// The error of a call about that path or file; 0 when it is to go through.
template <typename Subject> int errorOf(FaultyCall call, Subject subject)
{
    FaultPlan& plan = sablequillFaultPlan();
    if (plan.call != call || !concerns(plan, subject))
        return 0;
    if (plan.passing > 0) {
        --plan.passing;
        return 0;
    }
    if (plan.failing <= 0)
        return 0;
    if (plan.failing != FaultPlan::always)
        --plan.failing;
    ++plan.failed;
    return plan.error;
}

int failWith(int error)
{
    errno = error;
    return -1;
}

template <typename Call, typename Subject>
auto unlessFaulty(FaultyCall call, Subject subject, Call real)
{
    const int error = errorOf(call, subject);
    return error == 0 ? real() : decltype(real())(failWith(error));
}

int openAt(const char* name, const char* path, int flags, mode_t mode)
{
    const auto call = (flags & O_CREAT) != 0 ? FaultyCall::create : FaultyCall::open;
    return unlessFaulty(
        call, path, [&] { return hidden<int(const char*, int, ...)>(name)(path, flags, mode); });
}

mode_t modeIn(int flags, va_list arguments)
{
    const bool hasMode = (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE;
    return hasMode ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

FaultPlan& sablequillFaultPlan()
{
    static FaultPlan own;
    static FaultPlan* const plan = planInFile();
    return plan != nullptr ? *plan : own;
}

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeIn(flags, arguments);
    va_end(arguments);
    return openAt("open64", path, flags, mode);
}

int mkostemps(char* name, int suffixLength, int flags)
{
    return unlessFaulty(FaultyCall::create, static_cast<const char*>(name),
        [&] { return hidden<decltype(mkostemps)>("mkostemps")(name, suffixLength, flags); });
}

ssize_t read(int file, void* bytes, size_t size)
{
    return unlessFaulty(
        FaultyCall::read, file, [&] { return hidden<decltype(read)>("read")(file, bytes, size); });
}

ssize_t write(int file, const void* bytes, size_t size)
{
    const auto real = hidden<decltype(write)>("write");
    const int error = errorOf(FaultyCall::write, file);
    if (error == FaultPlan::shortWrite)
        return real(file, bytes, std::min<size_t>(size, size / 2 + 1));
    return error == 0 ? real(file, bytes, size) : failWith(error);
}

ssize_t writev(int file, const iovec* vectors, int count)
{
    const int error = errorOf(FaultyCall::write, file);
    if (error == FaultPlan::shortWrite)
        return hidden<decltype(write)>("write")(
            file, vectors->iov_base, std::min(vectors->iov_len, vectors->iov_len / 2 + 1));
    return error == 0 ? hidden<decltype(writev)>("writev")(file, vectors, count) : failWith(error);
}

int fsync(int file)
{
    return unlessFaulty(
        FaultyCall::sync, file, [&] { return hidden<decltype(fsync)>("fsync")(file); });
}

int fdatasync(int file)
{
    return unlessFaulty(
        FaultyCall::sync, file, [&] { return hidden<decltype(fdatasync)>("fdatasync")(file); });
}

int close(int file)
{
    // As the kernel does it: the descriptor is gone whatever is said.
    const int error = errorOf(FaultyCall::close, file);
    const int result = hidden<decltype(close)>("close")(file);
    return error == 0 ? result : failWith(error);
}

int flock(int file, int operation)
{
    return unlessFaulty(
        FaultyCall::lock, file, [&] { return hidden<int(int, int)>("flock")(file, operation); });
}

int rename(const char* from, const char* to) noexcept
{
    return unlessFaulty(FaultyCall::rename, to,
        [&] { return hidden<int(const char*, const char*)>("rename")(from, to); });
}

int link(const char* from, const char* to) noexcept
{
    return unlessFaulty(FaultyCall::link, to,
        [&] { return hidden<int(const char*, const char*)>("link")(from, to); });
}

int chmod(const char* path, mode_t mode) noexcept
{
    return unlessFaulty(FaultyCall::chmod, path,
        [&] { return hidden<int(const char*, mode_t)>("chmod")(path, mode); });
}

int unlink(const char* path) noexcept
{
    return unlessFaulty(
        FaultyCall::unlink, path, [&] { return hidden<int(const char*)>("unlink")(path); });
}

int mkdir(const char* path, mode_t mode) noexcept
{
    return unlessFaulty(FaultyCall::mkdir, path,
        [&] { return hidden<int(const char*, mode_t)>("mkdir")(path, mode); });
}

} // extern "C"
