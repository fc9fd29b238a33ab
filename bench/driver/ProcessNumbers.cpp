// SPDX-License-Identifier: MIT
#include "ProcessNumbers.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <time.h>

namespace sablequill {
namespace {

namespace fs = std::filesystem;

fs::path folderOf(pid_t process)
{
    return "/proc/" + std::to_string(process);
}

/// The first number after "name:" in a file of lines.
std::int64_t value(const fs::path& path, const std::string& name)
{
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(name + ':'))
            return std::stoll(line.substr(name.size() + 1));
    }
    throw std::runtime_error("no " + name + " in " + path.string());
}

double megabytes(pid_t process, const std::string& kind)
{
    return static_cast<double>(value(folderOf(process) / "smaps_rollup", kind)) * 1024 / 1e6;
}

struct Mapping {
    std::uintptr_t start = 0;
    std::uintptr_t end = 0;
    /// Of a file, and nothing was written to it here.
    bool isFile = false;
};

std::vector<Mapping> ownMappings()
{
    std::vector<Mapping> mappings;
    std::ifstream file("/proc/self/smaps");
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        Mapping mapping;
        char dash = 0;
        std::string access;
        if (words >> std::hex >> mapping.start >> dash >> mapping.end >> access && dash == '-') {
            mapping.isFile = access[1] == '-' && line.find(" /") != std::string::npos;
            mappings.push_back(mapping);
        } else if (line.starts_with("Anonymous:") && std::stoll(line.substr(10)) > 0) {
            mappings.back().isFile = false;
        }
    }
    return mappings;
}

/// What this process has mapped of the libraries that it shares with the one that is measured would
/// be counted there as half. It comes back when it is touched.
void letGoOfFiles()
{
    for (const Mapping& mapping : ownMappings()) {
        if (mapping.isFile)
            ::madvise(
                reinterpret_cast<void*>(mapping.start), mapping.end - mapping.start, MADV_DONTNEED);
    }
}

} // namespace

Activity activityOf(pid_t process)
{
    clockid_t clock = 0;
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
        throw std::runtime_error("no such process");
    Activity activity;
    activity.processorMilliseconds =
        static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    for (const auto& thread : fs::directory_iterator(folderOf(process) / "task"))
        activity.wakeUps[thread.path().filename()] =
            value(thread.path() / "status", "voluntary_ctxt_switches");
    return activity;
}

std::int64_t wakeUpsBetween(const Activity& before, const Activity& after)
{
    std::int64_t sum = 0;
    for (const auto& [thread, count] : before.wakeUps) {
        const auto later = after.wakeUps.find(thread);
        sum += later == after.wakeUps.end() ? 1 : later->second - count;
    }
    for (const auto& [thread, count] : after.wakeUps)
        sum += before.wakeUps.contains(thread) ? 0 : count + 1;
    return sum;
}

double ownMemory(pid_t process)
{
    letGoOfFiles();
    return megabytes(process, "Pss");
}

double writtenMemory(pid_t process)
{
    return megabytes(process, "Anonymous");
}

int openFiles(pid_t process)
{
    const fs::directory_iterator files(folderOf(process) / "fd");
    return static_cast<int>(std::distance(begin(files), end(files)));
}

} // namespace sablequill
