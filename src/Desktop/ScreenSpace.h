// SPDX-License-Identifier: MIT
#pragma once

#include "Rect.h"

#include <QPoint>
#include <QRect>

#include <optional>

/// The one place where the program's coordinates (points, origin at the bottom left of the primary
/// screen, y up) and the toolkit's (device-independent pixels, origin at the top left of the
/// virtual desktop, y down) meet. Without a screen the two differ by the sign of y alone.
namespace sablequill::ScreenSpace {

/// Places beyond 16,000 points and lengths beyond 10,000, which no display server can show, are
/// taken for these; negative lengths for none.
QRect toToolkit(const Rect& rect);
Rect fromToolkit(const QRect& rect);

/// A place without extent from the display server's own pixels, of which a scaled screen has
/// several to a point; nothing when it is on no screen.
std::optional<Rect> fromNative(const QPoint& pixel);

/// The rectangle itself when any part of it is on a screen, otherwise moved, and not resized, onto
/// the nearest one.
QRect movedOntoScreen(const QRect& rect);

} // namespace sablequill::ScreenSpace
