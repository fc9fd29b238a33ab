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
        send(XCB_BUTTON_RELEASE, leftButton, {});
    xcb_flush(x.get());
}

void Mouse::send(uint8_t type, uint8_t detail, Point point) const
{
    xcb_test_fake_input(x.get(), type, detail, XCB_CURRENT_TIME, x.root(),
        static_cast<int16_t>(point.x), static_cast<int16_t>(point.y), 0);
}

void Mouse::moveTo(Point point)
{
    send(XCB_MOTION_NOTIFY, 0, point);
    x.sync();
}

void Mouse::press()
{
    isHeld = true;
    send(XCB_BUTTON_PRESS, leftButton, {});
    x.sync();
}

void Mouse::release()
{
    isHeld = false;
    send(XCB_BUTTON_RELEASE, leftButton, {});
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
