// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include <sys/types.h>

namespace sablequill {

/// A program without a display that answers each line it is sent with one line.
class Answers {
public:
    explicit Answers(std::vector<std::string> command);
    Answers(const Answers&) = delete;
    Answers& operator=(const Answers&) = delete;
    ~Answers();

    /// The number it answers; throws std::runtime_error when it answers nothing.
    double ask() const;

private:
    int input = -1;
    FILE* output = nullptr;
    pid_t process = -1;
};

/// What a program prints, as a number; throws std::runtime_error when it fails.
double numberFrom(const std::vector<std::string>& command);

} // namespace sablequill
