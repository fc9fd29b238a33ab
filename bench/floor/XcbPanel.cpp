// SPDX-License-Identifier: MIT
//
// xcb_panel X Y WIDTH HEIGHT KEYCODE: a black override-redirect window that a press of Super, Shift
// and the key maps, and the next one unmaps. Nothing is faster than this on an X server.
#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

std::int16_t place(const char* text)
{
    return static_cast<std::int16_t>(std::atoi(text));
}

std::uint16_t extent(const char* text)
{
    return static_cast<std::uint16_t>(std::atoi(text));
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 6)
        return 1;
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    xcb_connection_t* x = connection.get();
    if (xcb_connection_has_error(x))
        return 1;
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(x)).data;

    const xcb_window_t window = xcb_generate_id(x);
    const std::uint32_t values[] = {screen.black_pixel, 1};
    xcb_create_window(x, XCB_COPY_FROM_PARENT, window, screen.root, place(argv[1]), place(argv[2]),
        extent(argv[3]), extent(argv[4]), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    xcb_grab_key(x, 0, screen.root, XCB_MOD_MASK_4 | XCB_MOD_MASK_SHIFT,
        static_cast<xcb_keycode_t>(std::atoi(argv[5])), XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_flush(x);

    bool isMapped = false;
    while (const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event{
        xcb_wait_for_event(x), std::free}) {
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS)
            continue;
        if (isMapped)
            xcb_unmap_window(x, window);
        else
            xcb_map_window(x, window);
        isMapped = !isMapped;
        xcb_flush(x);
    }
}
