// SPDX-License-Identifier: MIT
#pragma once

#include "KeyboardShortcutBinding.h"

#include <QString>

#include <array>
#include <optional>

namespace sablequill {

/// The four actions that answer a system-wide shortcut, in the order in which they are registered
/// and listed.
enum class HotkeyAction { toggleOverlay, quickOpen, nextNote, previousNote };

inline constexpr std::array allHotkeyActions{HotkeyAction::toggleOverlay, HotkeyAction::quickOpen,
    HotkeyAction::nextNote, HotkeyAction::previousNote};

/// The name under which settings.json keeps the action's binding; also its id in lists.
QString rawValue(HotkeyAction action);
/// Case-sensitive; nothing for any other string.
std::optional<HotkeyAction> hotkeyActionFromRawValue(const QString& rawValue);

QString displayName(HotkeyAction action);
KeyboardShortcutBinding defaultShortcut(HotkeyAction action);
/// The number under which the action's hot key is registered: 1 to 4.
int hotkeyID(HotkeyAction action);

} // namespace sablequill
