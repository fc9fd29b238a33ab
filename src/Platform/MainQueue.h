// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

namespace sablequill {

/// Work for a later turn of the main loop.
class MainQueue {
public:
    virtual void async(std::function<void()> work) = 0;
    virtual void after(double seconds, std::function<void()> work) = 0;

protected:
    ~MainQueue() = default;
};

} // namespace sablequill
