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

std::optional<ScreenFrames> QtScreens::screenOf(const Rect& rect) const
{
    const QScreen* screen = QGuiApplication::screenAt(ScreenSpace::toToolkit(rect).center());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    if (!screen)
        return std::nullopt;
    return ScreenFrames{ScreenSpace::fromToolkit(screen->geometry()),
        ScreenSpace::fromToolkit(screen->availableGeometry())};
}

} // namespace sablequill
