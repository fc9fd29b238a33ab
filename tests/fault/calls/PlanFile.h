// SPDX-License-Identifier: MIT
#pragma once

#include "FaultPlan.h"

#include <filesystem>
#include <new>
#include <stdexcept>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace sablequill {

/// A plan in a file, for another process; the file is there until somebody removes it.
class PlanFile {
public:
    /// Throws std::runtime_error when no such file can be made.
    explicit PlanFile(const std::filesystem::path& file)
    {
        const int descriptor = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (::ftruncate(descriptor, sizeof(FaultPlan)) == 0)
            memory = ::mmap(
                nullptr, sizeof(FaultPlan), PROT_READ | PROT_WRITE, MAP_SHARED, descriptor, 0);
        ::close(descriptor);
        if (memory == MAP_FAILED)
            throw std::runtime_error("no plan of faults in " + file.string());
        plan = new (memory) FaultPlan;
    }
    ~PlanFile() { ::munmap(memory, sizeof(FaultPlan)); }

    PlanFile(const PlanFile&) = delete;
    PlanFile& operator=(const PlanFile&) = delete;

    FaultPlan& get() { return *plan; }

private:
    void* memory = MAP_FAILED;
    FaultPlan* plan = nullptr;
};

} // namespace sablequill
