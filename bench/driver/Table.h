// SPDX-License-Identifier: MIT
#pragma once

#include "Statistics.h"

#include <optional>
#include <string>

namespace sablequill {

struct Row {
    std::string what;
    std::string unit;
    double program = 0;
    double floor = 0;
    /// The most (or, with `isLeast`, the least) that the program may have.
    double limit = 0;
    /// The limit in words.
    std::string target;
    bool isLeast = false;

    bool isMet() const { return isLeast ? program >= limit : program <= limit; }
};

/// Prints the rows as they come, as a table in Markdown.
class Table {
public:
    void begin(const std::string& setup);
    void add(const Row& row);
    /// Whether every row so far meets its target.
    bool isMet() const { return met; }

private:
    std::string setup;
    bool hasHeader = false;
    bool met = true;
};

} // namespace sablequill
