// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

namespace sablequill {

/// Real motion and buttons through XTEST.
class Mouse {
public:
    /// The connection outlives the mouse.
    explicit Mouse(const XConnection& connection);
    Mouse(const Mouse&) = delete;
    Mouse& operator=(const Mouse&) = delete;
    /// Releases the left button when it is still held.
    ~Mouse();

    void moveTo(Point point);
    void press();
    void release();
    void click(Point point);
    /// With the right button.
    void clickForMenu(Point point);
    /// Turns the wheel at that place: away from the hand by a positive number of notches.
    void turnWheel(Point point, int notches);
    /// Moves to one point, presses, moves to the other in steps as a hand does, and keeps holding.
    void dragAndHold(Point from, Point to);
    void drag(Point from, Point to);

private:
    void send(uint8_t type, uint8_t detail, Point point) const;

    const XConnection& x;
    bool isHeld = false;
};

} // namespace sablequill
