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
    // A point of ours is a device-independent pixel, whatever the screen's resolution.
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(style.size))));
    font.setWeight(style.weight);
    return font;
}

} // namespace

QFont font(TextStyle style)
{
    return styled(QGuiApplication::font(), style);
}

QFont monospacedFont(TextStyle style)
{
    return styled(QFontDatabase::systemFont(QFontDatabase::FixedFont), style);
}

} // namespace sablequill
