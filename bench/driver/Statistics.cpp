// SPDX-License-Identifier: MIT
#include "Statistics.h"

#include <algorithm>
#include <cmath>

namespace sablequill {

double milliseconds(Clock::duration duration)
{
    return std::chrono::duration<double, std::milli>(duration).count();
}

double quantile(std::vector<double> samples, double part)
{
    if (samples.empty())
        return 0;
    const auto last = static_cast<double>(samples.size() - 1);
    const auto index = static_cast<std::ptrdiff_t>(std::lround(last * part));
    std::nth_element(samples.begin(), samples.begin() + index, samples.end());
    return samples[static_cast<std::size_t>(index)];
}

double median(const std::vector<double>& samples)
{
    return quantile(samples, 0.5);
}

} // namespace sablequill
