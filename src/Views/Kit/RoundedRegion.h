// SPDX-License-Identifier: MIT
#pragma once

#include <QRegion>

namespace sablequill {

/// The shape of a window with rounded corners where there is no alpha channel; points. All four
/// corners are alike, which those of a region that the toolkit makes of a path are not.
QRegion roundedRegion(const QRect& rect, int radius);

} // namespace sablequill
