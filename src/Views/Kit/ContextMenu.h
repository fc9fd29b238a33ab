// SPDX-License-Identifier: MIT
#pragma once

#include <QMenu>
#include <QPoint>

namespace sablequill {

/// Opens a menu of a view's at a place on the screen, for one time. The press that asks for it may
/// just be about to give the view's window the keyboard: then the menu waits for that, a moment at
/// most, as the toolkit hears of no such change while a menu is open.
void openContextMenu(QMenu* menu, QPoint at);

} // namespace sablequill
