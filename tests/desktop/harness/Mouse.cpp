// SPDX-License-Identifier: MIT
#include "Mouse.h"

#include <xcb/xtest.h>

namespace sablequill {

namespace {

constexpr uint8_t leftButton = 1;
constexpr int dragSteps = 8;

} // namespace

Mouse::Mouse(const XConnection& connection)
    : x(connection)
{
}

Mouse::~Mouse()
{
    if (isHeld)
        release();
}

void Mouse::moveTo(Point point)
{
    xcb_test_fake_input(x.get(), XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, x.root(),
        static_cast<int16_t>(point.x), static_cast<int16_t>(point.y), 0);
    x.sync();
}

void Mouse::press()
{
    isHeld = true;
    xcb_test_fake_input(x.get(), XCB_BUTTON_PRESS, leftButton, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    x.sync();
}

void Mouse::release()
{
    isHeld = false;
    xcb_test_fake_input(
        x.get(), XCB_BUTTON_RELEASE, leftButton, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    x.sync();
}

void Mouse::click(Point point)
{
    moveTo(point);
    press();
    release();
}

void Mouse::dragAndHold(Point from, Point to)
{
    moveTo(from);
    press();
    for (int step = 1; step <= dragSteps; ++step)
        moveTo({from.x + (to.x - from.x) * step / dragSteps,
            from.y + (to.y - from.y) * step / dragSteps});
}

void Mouse::drag(Point from, Point to)
{
    dragAndHold(from, to);
    release();
}

} // namespace sablequill
