// SPDX-License-Identifier: MIT
#include "Screenshot.h"

#include "Wait.h"

#include <cmath>
#include <stdexcept>

namespace sablequill {

QImage captureScreen(const XConnection& x, Area area)
{
    const auto cookie = xcb_get_image(x.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, x.root(),
        static_cast<int16_t>(area.x), static_cast<int16_t>(area.y),
        static_cast<uint16_t>(area.width), static_cast<uint16_t>(area.height), ~0U);
    const XOwned<xcb_get_image_reply_t> reply(xcb_get_image_reply(x.get(), cookie, nullptr));
    const auto length = area.width * area.height * 4;
    if (!reply || xcb_get_image_data_length(reply.get()) != length)
        throw std::runtime_error("that area of the screen cannot be read");
    return QImage(xcb_get_image_data(reply.get()), area.width, area.height, area.width * 4,
        QImage::Format_RGB32)
        .copy();
}

QImage captureSteadily(const XConnection& x, const std::function<Area()>& area)
{
    constexpr Milliseconds steadyTime{150};
    QImage picture = captureScreen(x, area());
    waitUntil([&] {
        return holdsFor([&] { return captureScreen(x, area()) == picture; }, steadyTime)
            || (picture = captureScreen(x, area()), false);
    });
    return picture;
}

QColor colorAt(const XConnection& x, Point point)
{
    return captureScreen(x, {point.x, point.y, 1, 1}).pixelColor(0, 0);
}

bool isNear(const QColor& left, const QColor& right, int tolerance)
{
    return std::abs(left.red() - right.red()) <= tolerance
        && std::abs(left.green() - right.green()) <= tolerance
        && std::abs(left.blue() - right.blue()) <= tolerance;
}

QColor blended(const QColor& over, double opacity, const QColor& under)
{
    const auto channel = [&](int upper, int lower) {
        return static_cast<int>(std::lround(upper * opacity + lower * (1 - opacity)));
    };
    return {channel(over.red(), under.red()), channel(over.green(), under.green()),
        channel(over.blue(), under.blue())};
}

} // namespace sablequill

void PrintTo(const QColor& color, std::ostream* stream)
{
    *stream << color.name().toStdString();
}
