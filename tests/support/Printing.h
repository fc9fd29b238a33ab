// SPDX-License-Identifier: MIT
#pragma once

#include "OverlayFrame.h"
#include "Rect.h"

#include <ostream>

namespace sablequill {

// How journals and failed assertions show values.

inline std::ostream& operator<<(std::ostream& stream, const Rect& rect)
{
    return stream << '[' << rect.x << ' ' << rect.y << ' ' << rect.width << ' ' << rect.height
                  << ']';
}

inline std::ostream& operator<<(std::ostream& stream, const OverlayFrame& frame)
{
    return stream << Rect{frame.x, frame.y, frame.width, frame.height};
}

} // namespace sablequill
