// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace sablequill {

/// Does its work when the process ends by exit() within main(): so the toolkit ends it when the
/// display server is gone, and nothing that lives in main() is destroyed then. At most one may
/// exist, made after what its work needs.
class ExitHandler {
public:
    explicit ExitHandler(std::function<void()> work);
    ~ExitHandler();

    ExitHandler(const ExitHandler&) = delete;
    ExitHandler& operator=(const ExitHandler&) = delete;
};

} // namespace sablequill
