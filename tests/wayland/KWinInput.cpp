// SPDX-License-Identifier: MIT
#include "KWinInput.h"

#include "fake-input.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace sablequill {
namespace {

constexpr std::uint32_t versionWithKeys = 4;

void takeFakeInput(void* data, wl_registry* registry, std::uint32_t name, const char* interface,
    std::uint32_t version)
{
    if (std::strcmp(interface, org_kde_kwin_fake_input_interface.name) != 0)
        return;
    *static_cast<org_kde_kwin_fake_input**>(data) =
        static_cast<org_kde_kwin_fake_input*>(wl_registry_bind(registry, name,
            &org_kde_kwin_fake_input_interface, std::min(version, versionWithKeys)));
}

constexpr wl_registry_listener registryListener{
    takeFakeInput, [](void*, wl_registry*, std::uint32_t) {}};

} // namespace

KWinInput::KWinInput(const std::string& socket)
    : display(wl_display_connect(socket.c_str()))
{
    if (!display)
        throw std::runtime_error("no compositor at " + socket);
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &registryListener, &input);
    wl_display_roundtrip(display);
    wl_registry_destroy(registry);
    if (!input)
        throw std::runtime_error("the compositor takes no input from here");
    org_kde_kwin_fake_input_authenticate(input, "tests", "input");
    wl_display_roundtrip(display);
}

KWinInput::~KWinInput()
{
    org_kde_kwin_fake_input_destroy(input);
    wl_display_disconnect(display);
}

void KWinInput::moveTo(Point point)
{
    org_kde_kwin_fake_input_pointer_motion_absolute(
        input, wl_fixed_from_int(point.x), wl_fixed_from_int(point.y));
    wl_display_roundtrip(display);
}

void KWinInput::setButton(bool isPressed)
{
    org_kde_kwin_fake_input_button(input, BTN_LEFT, isPressed ? 1 : 0);
    wl_display_roundtrip(display);
}

void KWinInput::setKey(unsigned code, bool isPressed)
{
    org_kde_kwin_fake_input_keyboard_key(input, code, isPressed ? 1 : 0);
    wl_display_roundtrip(display);
}

} // namespace sablequill
