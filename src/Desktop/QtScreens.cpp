// SPDX-License-Identifier: MIT
#include "QtScreens.h"

#include "ScreenSpace.h"

#include <QGuiApplication>
#include <QScreen>

namespace sablequill {

std::optional<Rect> QtScreens::mainVisibleFrame() const
{
    const QScreen* primary = QGuiApplication::primaryScreen();
    if (!primary)
        return std::nullopt;
    return ScreenSpace::fromToolkit(primary->availableGeometry());
}

} // namespace sablequill
