// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <vector>

namespace sablequill {

using Clock = std::chrono::steady_clock;

double milliseconds(Clock::duration duration);

/// The value below which that part (0 to 1) of the samples lies; 0 when there are none.
double quantile(std::vector<double> samples, double part);
double median(const std::vector<double>& samples);

/// What the program and its floor took in turns.
struct Samples {
    std::vector<double> program;
    std::vector<double> floor;
};

} // namespace sablequill
