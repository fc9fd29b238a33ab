// SPDX-License-Identifier: MIT
#include "Guide.h"

namespace sablequill {

namespace {

constexpr int pageHeight = 340;
constexpr int buttonsMiddle = 40;
constexpr int forwardInset = 50;
constexpr int backInset = 32;

} // namespace

Guide::Guide(const XConnection& connection)
    : PanelOnScreen(connection, "guide")
{
}

Area Guide::pageArea() const
{
    auto area = card();
    area.height = pageHeight;
    return area;
}

QImage Guide::page() const
{
    return captureScreen(x, pageArea());
}

QImage Guide::steadyPage() const
{
    return captureSteadily(x, [this] { return pageArea(); });
}

Point Guide::forwardButton() const
{
    const auto area = card();
    return {area.right() - forwardInset, area.bottom() - buttonsMiddle};
}

Point Guide::backButton() const
{
    const auto area = card();
    return {area.x + backInset, area.bottom() - buttonsMiddle};
}

} // namespace sablequill
