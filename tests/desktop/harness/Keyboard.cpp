// SPDX-License-Identifier: MIT
#include "Keyboard.h"

#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

#include <iterator>
#include <optional>
#include <stdexcept>
#include <thread>

namespace sablequill {

namespace {

struct FreeKeySymbols {
    void operator()(xcb_key_symbols_t* symbols) const { xcb_key_symbols_free(symbols); }
};

struct Stroke {
    xcb_keycode_t code;
    bool isShifted;
};

/// Printable ASCII characters are their own keysyms.
xcb_keysym_t keysymOf(char character)
{
    constexpr xcb_keysym_t returnKeysym = 0xff0d;
    return character == '\n' ? returnKeysym : static_cast<unsigned char>(character);
}

std::optional<Stroke> strokeFor(
    const XConnection& x, xcb_key_symbols_t* symbols, xcb_keysym_t wanted)
{
    const auto* setup = xcb_get_setup(x.get());
    for (int level = 0; level < 2; ++level) {
        for (int code = setup->min_keycode; code <= setup->max_keycode; ++code) {
            const auto keycode = static_cast<xcb_keycode_t>(code);
            if (xcb_key_symbols_get_keysym(symbols, keycode, level) == wanted)
                return Stroke{keycode, level == 1};
        }
    }
    return std::nullopt;
}

} // namespace

Keyboard::Keyboard(const XConnection& connection)
    : x(connection)
{
}

Keyboard::~Keyboard()
{
    for (const auto code : held)
        send(XCB_KEY_RELEASE, code);
    xcb_flush(x.get());
}

void Keyboard::send(uint8_t type, xcb_keycode_t code) const
{
    xcb_test_fake_input(x.get(), type, code, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
}

void Keyboard::press(xcb_keycode_t code)
{
    // No finger is faster: a press in the millisecond of the same key's release is a repetition.
    if (const auto released = releasedAt.find(code); released != releasedAt.end())
        std::this_thread::sleep_until(released->second + std::chrono::milliseconds(2));
    held.insert(code);
    send(XCB_KEY_PRESS, code);
    x.sync();
}

void Keyboard::release(xcb_keycode_t code)
{
    held.erase(code);
    send(XCB_KEY_RELEASE, code);
    x.sync();
    releasedAt[code] = std::chrono::steady_clock::now();
}

void Keyboard::tap(xcb_keycode_t code)
{
    press(code);
    release(code);
}

void Keyboard::chord(std::initializer_list<xcb_keycode_t> modifiers, xcb_keycode_t code)
{
    for (const auto modifier : modifiers)
        press(modifier);
    tap(code);
    for (auto it = std::rbegin(modifiers); it != std::rend(modifiers); ++it)
        release(*it);
}

void Keyboard::type(std::string_view text)
{
    const std::unique_ptr<xcb_key_symbols_t, FreeKeySymbols> symbols(
        xcb_key_symbols_alloc(x.get()));
    for (const char character : text) {
        const auto stroke = strokeFor(x, symbols.get(), keysymOf(character));
        if (!stroke)
            throw std::runtime_error(std::string("no key for ") + character);
        if (stroke->isShifted)
            chord({KeyCode::leftShift}, stroke->code);
        else
            tap(stroke->code);
    }
}

void Keyboard::setLock(xcb_keycode_t code, uint16_t modifier, bool isOn)
{
    const XOwned<xcb_query_pointer_reply_t> state(
        xcb_query_pointer_reply(x.get(), xcb_query_pointer(x.get(), x.root()), nullptr));
    if (state && ((state->mask & modifier) != 0) != isOn)
        tap(code);
}

} // namespace sablequill
