// SPDX-License-Identifier: MIT
#include "Mouse.h"

#include <xcb/xtest.h>

#include <cstdlib>

namespace sablequill {

namespace {

constexpr uint8_t leftButton = 1;
constexpr uint8_t rightButton = 3;
constexpr uint8_t wheelAway = 4;
constexpr uint8_t wheelTowards = 5;
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

void Mouse::clickForMenu(Point point)
{
    moveTo(point);
    send(XCB_BUTTON_PRESS, rightButton, {});
    send(XCB_BUTTON_RELEASE, rightButton, {});
    x.sync();
}

void Mouse::turnWheel(Point point, int notches)
{
    moveTo(point);
    const uint8_t button = notches > 0 ? wheelAway : wheelTowards;
    for (int notch = std::abs(notches); notch > 0; --notch) {
        send(XCB_BUTTON_PRESS, button, {});
        send(XCB_BUTTON_RELEASE, button, {});
    }
    x.sync();
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
