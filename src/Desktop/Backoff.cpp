// SPDX-License-Identifier: MIT
#include "Backoff.h"

namespace sablequill {

Backoff::Backoff(std::chrono::milliseconds first, std::chrono::milliseconds longest)
    : first(first)
    , longest(longest)
    , next(first)
{
    timer.setSingleShot(true);
    connect(&timer, &QTimer::timeout, this, &Backoff::elapsed);
}

void Backoff::reset()
{
    next = first;
}

void Backoff::runSoon()
{
    timer.start(0);
}

void Backoff::wait()
{
    if (next > longest)
        return;
    timer.start(next);
    next *= 2;
}

void Backoff::stop()
{
    timer.stop();
}

} // namespace sablequill
