// SPDX-License-Identifier: MIT
#include "CompositorInput.h"

#include <chrono>
#include <thread>

namespace sablequill {
namespace {

using namespace std::chrono_literals;

/// A hand rests before it presses. KWin 5.27 now and then loses a press that comes in the same
/// millisecond as a motion.
constexpr auto rest = 60ms;

} // namespace

void CompositorInput::pressAt(Point point)
{
    moveTo(point);
    std::this_thread::sleep_for(rest);
    setButton(true);
}

void CompositorInput::click(Point point)
{
    pressAt(point);
    setButton(false);
}

void CompositorInput::tap(unsigned code)
{
    setKey(code, true);
    setKey(code, false);
}

void CompositorInput::drag(Point from, Point to)
{
    constexpr int steps = 5;
    pressAt(from);
    for (int step = 1; step <= steps; ++step)
        moveTo({from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps});
    setButton(false);
}

} // namespace sablequill
