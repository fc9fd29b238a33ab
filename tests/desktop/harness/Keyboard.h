// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <chrono>
#include <initializer_list>
#include <map>
#include <set>
#include <string_view>

namespace sablequill {

/// X key codes of physical positions: the kernel's code plus 8, the same under every layout.
namespace KeyCode {
inline constexpr xcb_keycode_t escape = 9;
inline constexpr xcb_keycode_t backspace = 22;
inline constexpr xcb_keycode_t tab = 23;
inline constexpr xcb_keycode_t o = 32;
inline constexpr xcb_keycode_t returnKey = 36;
inline constexpr xcb_keycode_t leftControl = 37;
inline constexpr xcb_keycode_t a = 38;
inline constexpr xcb_keycode_t g = 42;
inline constexpr xcb_keycode_t h = 43;
inline constexpr xcb_keycode_t leftShift = 50;
inline constexpr xcb_keycode_t b = 56;
inline constexpr xcb_keycode_t m = 58;
inline constexpr xcb_keycode_t space = 65;
inline constexpr xcb_keycode_t capsLock = 66;
inline constexpr xcb_keycode_t leftAlt = 64;
inline constexpr xcb_keycode_t f10 = 76;
inline constexpr xcb_keycode_t numLock = 77;
inline constexpr xcb_keycode_t home = 110;
inline constexpr xcb_keycode_t up = 111;
inline constexpr xcb_keycode_t pageUp = 112;
inline constexpr xcb_keycode_t left = 113;
inline constexpr xcb_keycode_t right = 114;
inline constexpr xcb_keycode_t end = 115;
inline constexpr xcb_keycode_t down = 116;
inline constexpr xcb_keycode_t pageDown = 117;
inline constexpr xcb_keycode_t leftSuper = 133;
inline constexpr xcb_keycode_t menu = 135;
} // namespace KeyCode

/// Real key presses through XTEST, seen by every client and every grab like those of a keyboard.
class Keyboard {
public:
    /// The connection outlives the keyboard.
    explicit Keyboard(const XConnection& connection);
    Keyboard(const Keyboard&) = delete;
    Keyboard& operator=(const Keyboard&) = delete;
    /// Releases what is still held.
    ~Keyboard();

    void press(xcb_keycode_t code);
    void release(xcb_keycode_t code);
    void tap(xcb_keycode_t code);
    /// Presses the modifiers in order, taps the key, releases the modifiers in reverse order.
    void chord(std::initializer_list<xcb_keycode_t> modifiers, xcb_keycode_t code);
    /// Types printable ASCII and line feeds by the layout in force. Throws std::runtime_error for a
    /// character that the layout does not have on one of its first two levels.
    void type(std::string_view text);
    /// Taps a lock key unless its modifier (an X modifier mask) has the state wanted already.
    void setLock(xcb_keycode_t code, uint16_t modifier, bool isOn);

private:
    void send(uint8_t type, xcb_keycode_t code) const;

    const XConnection& x;
    std::set<xcb_keycode_t> held;
    /// When each key was last released.
    std::map<xcb_keycode_t, std::chrono::steady_clock::time_point> releasedAt;
};

} // namespace sablequill
