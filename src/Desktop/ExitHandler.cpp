// SPDX-License-Identifier: MIT
#include "ExitHandler.h"

#include <cstdlib>
#include <utility>

namespace sablequill {
namespace {

/// All that a handler can reach.
std::function<void()> pendingWork;

void doPendingWork()
{
    if (const auto work = std::exchange(pendingWork, {}))
        work();
}

} // namespace

ExitHandler::ExitHandler(std::function<void()> work)
{
    pendingWork = std::move(work);
    std::atexit(doPendingWork);
}

ExitHandler::~ExitHandler()
{
    pendingWork = {};
}

} // namespace sablequill
