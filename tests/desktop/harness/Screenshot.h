// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <QColor>
#include <QImage>

#include <functional>
#include <ostream>

namespace sablequill {

/// What the screen shows in that area, as a compositor has blended it where one runs. Throws
/// std::runtime_error when the area is not wholly on the screen.
QImage captureScreen(const XConnection& x, Area area);

/// The same once it has stopped changing; the area is asked for again each time.
QImage captureSteadily(const XConnection& x, const std::function<Area()>& area);

QColor colorAt(const XConnection& x, Point point);

/// Whether no channel differs by more than the tolerance (of 255).
bool isNear(const QColor& left, const QColor& right, int tolerance);

/// The color that a translucent one gives over an opaque one.
QColor blended(const QColor& over, double opacity, const QColor& under);

} // namespace sablequill

/// For the messages of failed assertions.
void PrintTo(const QColor& color, std::ostream* stream);
