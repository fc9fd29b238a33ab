// SPDX-License-Identifier: MIT
#pragma once

namespace sablequill {

class Panel;

/// The switch behind Mirk mode: whether captures of the screen show a window.
///
/// The window server may reset the exclusion when it orders or resizes a window, so both operations
/// may be repeated at will.
namespace CaptureExclusion {

/// Whether regions of a window could be excluded as well; for information only, nothing depends on
/// it.
bool isSupported();
/// Leaves the window out of captures and lifts it to the floating level.
void apply(Panel& window);
/// Lets captures show the window again; the level stays.
void remove(Panel& window);

} // namespace CaptureExclusion

} // namespace sablequill
