// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry.h"

#include <initializer_list>

namespace sablequill {

/// Codes of the kernel for keys at their physical positions.
namespace EvdevKey {
inline constexpr unsigned escape = 1;
inline constexpr unsigned q = 16;
inline constexpr unsigned a = 30;
inline constexpr unsigned z = 44;
} // namespace EvdevKey

/// Mouse and keyboard of a seat of the compositor: what they do goes wherever the compositor sends
/// it, to Wayland and X clients alike.
class CompositorInput {
public:
    virtual ~CompositorInput() = default;

    virtual void moveTo(Point point) = 0;
    virtual void setButton(bool isPressed) = 0;
    virtual void setKey(unsigned code, bool isPressed) = 0;

    void click(Point point);
    void tap(unsigned code);
    /// In steps, as a hand does.
    void drag(Point from, Point to);

private:
    void pressAt(Point point);
};

} // namespace sablequill
