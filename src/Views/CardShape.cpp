// SPDX-License-Identifier: MIT
#include "CardShape.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace sablequill {
namespace {

/// How far along the edges a corner reaches, in radii.
constexpr double reachInRadii = 1.53;
constexpr int stepsPerCorner = 16;

/// A quarter of |x|^n + |y|^n = 1 has no jump in its curvature where it meets the straight edges.
/// With this n it cuts the corner off as far as the arc of the same radius does.
double exponent()
{
    const double arcDepth = 1 - std::numbers::sqrt2 / 2;
    return std::numbers::ln2 / -std::log(1 - arcDepth / reachInRadii);
}

} // namespace

double cornerReach(double radius)
{
    return radius * reachInRadii;
}

QPainterPath cardShape(const QRectF& rect, double radius)
{
    const double reach = std::min({cornerReach(radius), rect.width() / 2, rect.height() / 2});
    const double power = 2 / exponent();
    QPolygonF outline;
    for (int step = 0; step < 4 * (stepsPerCorner + 1); ++step) {
        const int corner = step / (stepsPerCorner + 1);
        const double part = step % (stepsPerCorner + 1) / double{stepsPerCorner};
        const double angle = (corner + part) * std::numbers::pi / 2;
        const auto along = [&](double direction) {
            return std::copysign(std::pow(std::abs(direction), power), direction) * reach;
        };
        const bool isRight = corner == 0 || corner == 3;
        const bool isBottom = corner < 2;
        const double centerX = isRight ? rect.right() - reach : rect.left() + reach;
        const double centerY = isBottom ? rect.bottom() - reach : rect.top() + reach;
        outline << QPointF(centerX + along(std::cos(angle)), centerY + along(std::sin(angle)));
    }
    QPainterPath path;
    path.addPolygon(outline);
    path.closeSubpath();
    return path;
}

} // namespace sablequill
