// SPDX-License-Identifier: MIT
#include "ScreenWatch.h"

#include <poll.h>

#include <chrono>
#include <stdexcept>

namespace sablequill {

using namespace std::chrono_literals;

ScreenWatch::ScreenWatch(const XConnection& connection, Area watched)
    : x(connection)
    , area(watched)
    , damage(xcb_generate_id(connection.get()))
{
    const XOwned<xcb_damage_query_version_reply_t> version(
        xcb_damage_query_version_reply(x.get(), xcb_damage_query_version(x.get(), 1, 1), nullptr));
    if (!version)
        throw std::runtime_error("the X server has no DAMAGE extension");
    xcb_damage_create(x.get(), damage, x.root(), XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    x.sync();
}

ScreenWatch::~ScreenWatch()
{
    xcb_damage_destroy(x.get(), damage);
    xcb_flush(x.get());
}

ScreenWatch::Picture ScreenWatch::picture() const
{
    const auto cookie = xcb_get_image(x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, x.root(),
        static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
        static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height), ~0U);
    const XOwned<xcb_get_image_reply_t> reply(xcb_get_image_reply(x.get(), cookie, nullptr));
    if (!reply)
        throw std::runtime_error("the area cannot be read from the screen");
    const std::uint8_t* data = xcb_get_image_data(reply.get());
    return {data, data + xcb_get_image_data_length(reply.get())};
}

Clock::time_point ScreenWatch::waitForChangeFrom(const Picture& before) const
{
    return waitUntilPicture(before, false);
}

void ScreenWatch::waitFor(const Picture& expected) const
{
    waitUntilPicture(expected, true);
}

Clock::time_point ScreenWatch::waitUntilPicture(const Picture& wanted, bool isEqual) const
{
    const auto deadline = Clock::now() + 30s;
    while (Clock::now() < deadline) {
        if ((picture() == wanted) == isEqual)
            return Clock::now();
        waitForDamage();
    }
    throw std::runtime_error(isEqual ? "the screen stays changed" : "nothing changes on screen");
}

/// Or for a few milliseconds: what a compositor draws with its own means may go unreported.
void ScreenWatch::waitForDamage() const
{
    pollfd socket{xcb_get_file_descriptor(x.get()), POLLIN, 0};
    if (!x.nextEvent())
        ::poll(&socket, 1, 2);
    while (x.nextEvent()) { }
}

} // namespace sablequill
