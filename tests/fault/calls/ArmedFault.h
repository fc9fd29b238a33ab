// SPDX-License-Identifier: MIT
#pragma once

#include "FaultPlan.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <string>

namespace sablequill {

/// A kind of failure: which calls fail, with what, and how often.
struct Fault {
    FaultyCall call;
    int error; ///< as errno, or FaultPlan::shortWrite
    int failing = FaultPlan::always;
    int passing = 0;
};

inline std::ostream& operator<<(std::ostream& stream, const Fault& fault)
{
    return stream << "call " << static_cast<int>(fault.call) << ", error " << fault.error << ", "
                  << fault.passing << " pass, " << fault.failing << " fail";
}

/// Makes a plan's calls below the folder fail for as long as this object lives.
class ArmedFault {
public:
    ArmedFault(FaultPlan& faultPlan, const std::filesystem::path& folder, const Fault& fault)
        : plan(faultPlan)
    {
        const std::string name = std::filesystem::canonical(folder);
        const auto end = std::copy_n(
            name.begin(), std::min(name.size(), plan.folder.size() - 1), plan.folder.begin());
        *end = '\0';
        plan.failed = 0;
        plan.error = fault.error;
        plan.passing = fault.passing;
        plan.failing = fault.failing;
        plan.call = fault.call;
    }
    ~ArmedFault() { plan.call = FaultyCall::none; }

    ArmedFault(const ArmedFault&) = delete;
    ArmedFault& operator=(const ArmedFault&) = delete;

    /// How many calls have failed.
    int failed() const { return plan.failed; }

private:
    FaultPlan& plan;
};

} // namespace sablequill
