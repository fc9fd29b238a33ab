// SPDX-License-Identifier: MIT
#include "TextStyle.h"

#include <QFontDatabase>
#include <QGuiApplication>

#include <algorithm>
#include <cmath>

namespace sablequill {
namespace {

QFont styled(QFont font, TextStyle style)
{
    font.setPixelSize(pixelSize(style.size));
    font.setWeight(style.weight);
    return font;
}

} // namespace

int pixelSize(double points)
{
    // A point of ours is a device-independent pixel, whatever the screen's resolution.
    return static_cast<int>(std::lround(std::clamp(points, 1.0, largestTextSize)));
}

QFont font(TextStyle style)
{
    return styled(QGuiApplication::font(), style);
}

QFont monospacedFont(TextStyle style)
{
    return styled(QFontDatabase::systemFont(QFontDatabase::FixedFont), style);
}

} // namespace sablequill
