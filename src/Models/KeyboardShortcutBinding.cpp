// SPDX-License-Identifier: MIT
#include "KeyboardShortcutBinding.h"

#include "KeyCodeMapper.h"

#include <QHashFunctions>

#include <array>

namespace sablequill {
namespace {

using ModifierFlags = KeyboardShortcutBinding::ModifierFlags;

struct Modifier {
    ModifierFlags flag;
    std::uint32_t carbonMask = 0;
    char16_t sign = 0;
};

/// In the order in which menus show them, which is not the order of the bits.
constexpr std::array namedModifiers{
    Modifier{ModifierFlags::control, 0x1000, u'⌃'},
    Modifier{ModifierFlags::option, 0x800, u'⌥'},
    Modifier{ModifierFlags::shift, 0x200, u'⇧'},
    Modifier{ModifierFlags::command, 0x100, u'⌘'},
};

} // namespace

std::uint32_t KeyboardShortcutBinding::ModifierFlags::carbonFlags() const
{
    std::uint32_t mask = 0;
    for (const Modifier& modifier : namedModifiers) {
        if (contains(modifier.flag))
            mask |= modifier.carbonMask;
    }
    return mask;
}

QString KeyboardShortcutBinding::displayString() const
{
    QString signs;
    for (const Modifier& modifier : namedModifiers) {
        if (modifiers.contains(modifier.flag))
            signs += QChar(modifier.sign);
    }
    return signs + KeyCodeMapper::displayCharacter(keyCode);
}

} // namespace sablequill

std::size_t std::hash<sablequill::KeyboardShortcutBinding::ModifierFlags>::operator()(
    sablequill::KeyboardShortcutBinding::ModifierFlags modifiers) const noexcept
{
    return std::hash<std::uint32_t>{}(modifiers.rawValue);
}

std::size_t std::hash<sablequill::KeyboardShortcutBinding>::operator()(
    const sablequill::KeyboardShortcutBinding& binding) const noexcept
{
    return qHashMulti(0, binding.keyCode, binding.modifiers.rawValue);
}
