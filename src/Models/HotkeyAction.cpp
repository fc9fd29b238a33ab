// SPDX-License-Identifier: MIT
#include "HotkeyAction.h"

#include <algorithm>

namespace sablequill {
namespace {

using ModifierFlags = KeyboardShortcutBinding::ModifierFlags;

struct Row {
    HotkeyAction action;
    QString rawValue;
    QString displayName;
    std::uint32_t defaultKeyCode;
};

const std::array<Row, allHotkeyActions.size()>& rows()
{
    static const std::array<Row, allHotkeyActions.size()> rows{{
        {HotkeyAction::toggleOverlay, QStringLiteral("toggleOverlay"),
            QStringLiteral("Toggle Overlay"), 5},
        {HotkeyAction::quickOpen, QStringLiteral("quickOpen"), QStringLiteral("Quick Open"), 31},
        {HotkeyAction::nextNote, QStringLiteral("nextNote"), QStringLiteral("Next Note"), 125},
        {HotkeyAction::previousNote, QStringLiteral("previousNote"),
            QStringLiteral("Previous Note"), 126},
    }};
    return rows;
}

const Row& row(HotkeyAction action)
{
    return rows().at(static_cast<std::size_t>(action));
}

} // namespace

QString rawValue(HotkeyAction action)
{
    return row(action).rawValue;
}

std::optional<HotkeyAction> hotkeyActionFromRawValue(const QString& rawValue)
{
    const auto found = std::find_if(rows().begin(), rows().end(),
        [&](const Row& candidate) { return candidate.rawValue == rawValue; });
    if (found == rows().end())
        return {};
    return found->action;
}

QString displayName(HotkeyAction action)
{
    return row(action).displayName;
}

KeyboardShortcutBinding defaultShortcut(HotkeyAction action)
{
    return {row(action).defaultKeyCode, ModifierFlags::command | ModifierFlags::shift};
}

int hotkeyID(HotkeyAction action)
{
    return static_cast<int>(action) + 1;
}

} // namespace sablequill
