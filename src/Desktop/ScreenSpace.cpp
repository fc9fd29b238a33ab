// SPDX-License-Identifier: MIT
#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <cmath>

namespace sablequill::ScreenSpace {
namespace {

/// A display server has 16 bits for a place and for a length, and pictures of a window in memory.
constexpr double farthest = 16'000;
constexpr double longest = 10'000;

int wholeNumber(double value, double least, double most)
{
    return static_cast<int>(std::lround(std::clamp(value, least, most)));
}

/// The toolkit's coordinates of the point (0, 0).
QPoint origin()
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    if (!primary)
        return {};
    const QRect geometry = primary->geometry();
    return {geometry.x(), geometry.y() + geometry.height()};
}

int gap(int low, int high, int from, int to)
{
    return std::max({0, from - high, low - to});
}

long long squaredDistance(const QRect& a, const QRect& b)
{
    const long long dx = gap(a.left(), a.right(), b.left(), b.right());
    const long long dy = gap(a.top(), a.bottom(), b.top(), b.bottom());
    return dx * dx + dy * dy;
}

/// A coordinate at which `length` lies inside the range, at its start when it does not fit.
int moveInside(int start, int length, int rangeStart, int rangeLength)
{
    return std::max(rangeStart, std::min(start, rangeStart + rangeLength - length));
}

/// The toolkit keeps the top left of a screen in native pixels and scales its extent alone. That is
/// rounded to whole points: `margin` is how many the last pixels may lie outside.
std::optional<QPoint> toolkitPoint(const QScreen& screen, const QPoint& pixel, double margin)
{
    const QRect geometry = screen.geometry();
    const QPointF inside = QPointF(pixel - geometry.topLeft()) / screen.devicePixelRatio();
    if (inside.x() < 0 || inside.x() >= geometry.width() + margin || inside.y() < 0
        || inside.y() >= geometry.height() + margin)
        return std::nullopt;
    const QPoint whole(static_cast<int>(inside.x()), static_cast<int>(inside.y()));
    const QPoint last(geometry.width() - 1, geometry.height() - 1);
    return geometry.topLeft()
        + QPoint(std::min(whole.x(), last.x()), std::min(whole.y(), last.y()));
}

} // namespace

QRect toToolkit(const Rect& rect)
{
    const QPoint zero = origin();
    const int width = wholeNumber(rect.width, 0, longest);
    const int height = wholeNumber(rect.height, 0, longest);
    return {zero.x() + wholeNumber(rect.x, -farthest, farthest),
        zero.y() - wholeNumber(rect.y, -farthest, farthest) - height, width, height};
}

Rect fromToolkit(const QRect& rect)
{
    const QPoint zero = origin();
    return {static_cast<double>(rect.x() - zero.x()),
        static_cast<double>(zero.y() - rect.y() - rect.height()), static_cast<double>(rect.width()),
        static_cast<double>(rect.height())};
}

std::optional<Rect> fromNative(const QPoint& pixel)
{
    for (const double margin : {0.0, 1.0}) {
        for (const QScreen* screen : QGuiApplication::screens()) {
            if (const auto point = toolkitPoint(*screen, pixel, margin))
                return fromToolkit(QRect(*point, QSize(0, 0)));
        }
    }
    return std::nullopt;
}

QRect movedOntoScreen(const QRect& rect)
{
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto shows = [&](const QScreen* screen) { return screen->geometry().intersects(rect); };
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), shows))
        return rect;
    const QScreen* nearest =
        *std::min_element(screens.begin(), screens.end(), [&](const QScreen* a, const QScreen* b) {
            return squaredDistance(a->geometry(), rect) < squaredDistance(b->geometry(), rect);
        });
    const QRect area = nearest->availableGeometry();
    return {moveInside(rect.x(), rect.width(), area.x(), area.width()),
        moveInside(rect.y(), rect.height(), area.y(), area.height()), rect.width(), rect.height()};
}

} // namespace sablequill::ScreenSpace
