// SPDX-License-Identifier: MIT
#include "RoundedRegion.h"

#include <cmath>

namespace sablequill {

QRegion roundedRegion(const QRect& rect, int radius)
{
    QRegion region(rect.adjusted(0, radius, 0, -radius));
    for (int y = 0; y < radius; ++y) {
        const double up = radius - y - 0.5;
        const int inset =
            static_cast<int>(std::lround(radius - std::sqrt(radius * radius - up * up)));
        const QRect line(rect.left() + inset, rect.top() + y, rect.width() - 2 * inset, 1);
        region += line;
        region += line.translated(0, rect.height() - 1 - 2 * y);
    }
    return region;
}

} // namespace sablequill
