// SPDX-License-Identifier: MIT
#include "KeyboardMap.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <set>

namespace sablequill {
namespace {

// X11/keysymdef.h
constexpr xcb_keysym_t keysymScrollLock = 0xff14;
constexpr xcb_keysym_t keysymNumLock = 0xff7f;
constexpr xcb_keysym_t keysymAltLeft = 0xffe9;
constexpr xcb_keysym_t keysymAltRight = 0xffea;
constexpr xcb_keysym_t keysymSuperLeft = 0xffeb;
constexpr xcb_keysym_t keysymSuperRight = 0xffec;

constexpr int modifierCount = 8;

using KeyMapping = XReply<xcb_get_keyboard_mapping_reply_t>;
using ModifierMapping = XReply<xcb_get_modifier_mapping_reply_t>;

xcb_get_keyboard_mapping_cookie_t askForKeys(const XServer& server)
{
    const xcb_setup_t* setup = xcb_get_setup(server.connection);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    return xcb_get_keyboard_mapping(server.connection, setup->min_keycode, count);
}

/// The keys that give one of `wanted` on any level: some carry a modifier's symbol on the second
/// only.
std::set<xcb_keycode_t> keysGiving(
    const XServer& server, const KeyMapping& keys, std::initializer_list<xcb_keysym_t> wanted)
{
    std::set<xcb_keycode_t> found;
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(keys.get());
    const int length = xcb_get_keyboard_mapping_keysyms_length(keys.get());
    const xcb_keycode_t first = xcb_get_setup(server.connection)->min_keycode;
    for (int i = 0; i < length; ++i) {
        if (std::find(wanted.begin(), wanted.end(), symbols[i]) != wanted.end())
            found.insert(static_cast<xcb_keycode_t>(first + i / keys->keysyms_per_keycode));
    }
    return found;
}

/// The mask of the modifier that one of `keys` is on, 0 for none.
std::uint16_t maskOf(const ModifierMapping& modifiers, const std::set<xcb_keycode_t>& keys)
{
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const int perModifier = modifiers->keycodes_per_modifier;
    for (int i = 0; i < modifierCount * perModifier; ++i) {
        if (codes[i] != 0 && keys.contains(codes[i]))
            return static_cast<std::uint16_t>(1U << (i / perModifier));
    }
    return 0;
}

} // namespace

KeyboardMap KeyboardMap::read(const XServer& server)
{
    const auto keysCookie = askForKeys(server);
    const auto modifiersCookie = xcb_get_modifier_mapping(server.connection);
    const KeyMapping keys(xcb_get_keyboard_mapping_reply(server.connection, keysCookie, nullptr));
    const ModifierMapping modifiers(
        xcb_get_modifier_mapping_reply(server.connection, modifiersCookie, nullptr));
    if (!keys || !modifiers || keys->keysyms_per_keycode == 0)
        return {};
    const auto mask = [&](std::initializer_list<xcb_keysym_t> wanted) {
        return maskOf(modifiers, keysGiving(server, keys, wanted));
    };
    return {.super = mask({keysymSuperLeft, keysymSuperRight}),
        .alt = mask({keysymAltLeft, keysymAltRight}),
        .numLock = mask({keysymNumLock}),
        .scrollLock = mask({keysymScrollLock})};
}

std::optional<std::uint16_t> KeyboardMap::serverMask(std::uint32_t modifiers) const
{
    struct Modifier {
        std::uint32_t asked;
        std::uint16_t server;
    };
    const std::array known{Modifier{256, super}, Modifier{512, XCB_MOD_MASK_SHIFT},
        Modifier{2048, alt}, Modifier{4096, XCB_MOD_MASK_CONTROL}};
    std::uint16_t mask = 0;
    for (const Modifier& modifier : known) {
        if (!(modifiers & modifier.asked))
            continue;
        if (modifier.server == 0)
            return std::nullopt;
        mask |= modifier.server;
    }
    return mask;
}

std::vector<std::uint16_t> KeyboardMap::lockVariants() const
{
    std::vector<std::uint16_t> variants{0};
    for (const std::uint16_t lock : {std::uint16_t{XCB_MOD_MASK_LOCK}, numLock, scrollLock}) {
        if (lock == 0 || std::find(variants.begin(), variants.end(), lock) != variants.end())
            continue;
        const std::vector<std::uint16_t> without = variants;
        for (const std::uint16_t variant : without)
            variants.push_back(static_cast<std::uint16_t>(variant | lock));
    }
    return variants;
}

std::uint16_t KeyboardMap::significantMask() const
{
    return static_cast<std::uint16_t>(0xff & ~(XCB_MOD_MASK_LOCK | numLock | scrollLock));
}

} // namespace sablequill
