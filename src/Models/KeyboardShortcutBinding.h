// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <functional>

namespace sablequill {

/// A virtual key code (ANSI layout numbering: 0 is A, 125 the down arrow) and the modifiers that
/// must be held with it.
struct KeyboardShortcutBinding {
    /// A set of modifier keys. Every bit of the raw value is kept, named or not.
    struct ModifierFlags {
        std::uint32_t rawValue = 0;

        static const ModifierFlags command;
        static const ModifierFlags shift;
        static const ModifierFlags option;
        static const ModifierFlags control;

        /// The hot-key service's mask: command 256, shift 512, option 2048, control 4096. Unnamed
        /// bits contribute nothing.
        std::uint32_t carbonFlags() const;

        constexpr bool contains(ModifierFlags other) const
        {
            return (rawValue & other.rawValue) == other.rawValue;
        }
        constexpr void insert(ModifierFlags other) { rawValue |= other.rawValue; }
        constexpr void remove(ModifierFlags other) { rawValue &= ~other.rawValue; }
        constexpr ModifierFlags operator|(ModifierFlags other) const
        {
            return {rawValue | other.rawValue};
        }

        bool operator==(const ModifierFlags&) const = default;
    };

    std::uint32_t keyCode = 0;
    ModifierFlags modifiers = {};

    /// Control, option, shift, command (those present), then the key: "⇧⌘G".
    QString displayString() const;

    bool operator==(const KeyboardShortcutBinding&) const = default;
};

inline constexpr KeyboardShortcutBinding::ModifierFlags
    KeyboardShortcutBinding::ModifierFlags::command{1};
inline constexpr KeyboardShortcutBinding::ModifierFlags
    KeyboardShortcutBinding::ModifierFlags::shift{2};
inline constexpr KeyboardShortcutBinding::ModifierFlags
    KeyboardShortcutBinding::ModifierFlags::option{4};
inline constexpr KeyboardShortcutBinding::ModifierFlags
    KeyboardShortcutBinding::ModifierFlags::control{8};

} // namespace sablequill

template <> struct std::hash<sablequill::KeyboardShortcutBinding::ModifierFlags> {
    std::size_t operator()(
        sablequill::KeyboardShortcutBinding::ModifierFlags modifiers) const noexcept;
};

template <> struct std::hash<sablequill::KeyboardShortcutBinding> {
    std::size_t operator()(const sablequill::KeyboardShortcutBinding& binding) const noexcept;
};
