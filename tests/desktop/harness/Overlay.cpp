// SPDX-License-Identifier: MIT
#include "Overlay.h"

namespace sablequill {

namespace {

// From the card's edges to the middle of what lies there.
constexpr int headerMiddle = 22;
constexpr int footerMiddle = 19;
constexpr int hideButtonInset = 26;
constexpr int editButtonInset = 60;
constexpr int previousButtonInset = 25;
constexpr int newButtonInset = 36;

} // namespace

Overlay::Overlay(const XConnection& connection)
    : PanelOnScreen(connection, "overlay")
{
}

double Overlay::opacity() const
{
    const auto id = window();
    const auto value = id ? x.property(*id, "_NET_WM_WINDOW_OPACITY") : std::vector<uint32_t>{};
    return value.empty() ? 1.0 : value[0] / double{0xffffffffU};
}

QImage Overlay::steadyPicture() const
{
    return captureSteadily(x, [this] { return card(); });
}

Area Overlay::header() const
{
    const auto area = card();
    return {area.x, area.y, area.width, 2 * headerMiddle};
}

Point Overlay::headerBackground() const
{
    const auto area = card();
    return {area.x + area.width / 2, area.y + headerMiddle};
}

Point Overlay::footerBackground() const
{
    const auto area = card();
    return {area.x + area.width / 2, area.bottom() - footerMiddle};
}

Point Overlay::contentBackground() const
{
    const auto area = card();
    return {area.x + area.width / 2, area.bottom() - 2 * footerMiddle - 20};
}

Point Overlay::editButton() const
{
    const auto area = card();
    return {area.right() - editButtonInset, area.y + headerMiddle};
}

Point Overlay::hideButton() const
{
    const auto area = card();
    return {area.right() - hideButtonInset, area.y + headerMiddle};
}

Point Overlay::previousButton() const
{
    const auto area = card();
    return {area.x + previousButtonInset, area.bottom() - footerMiddle};
}

Point Overlay::newButton() const
{
    const auto area = card();
    return {area.right() - newButtonInset, area.bottom() - footerMiddle};
}

} // namespace sablequill
