// SPDX-License-Identifier: MIT
#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace sablequill {

/// The calls that all fakes of a test received, in one order: "panel.setAlpha(0.92)".
class Journal {
public:
    template <typename... Arguments>
    void record(const std::string& call, const Arguments&... arguments)
    {
        std::ostringstream line;
        line << std::boolalpha << call << '(';
        [[maybe_unused]] const char* separator = "";
        ((line << std::exchange(separator, ", ") << arguments), ...);
        line << ')';
        lines.push_back(line.str());
    }

    /// What was recorded since the last call of this function.
    std::vector<std::string> take() { return std::exchange(lines, {}); }

private:
    std::vector<std::string> lines;
};

} // namespace sablequill
