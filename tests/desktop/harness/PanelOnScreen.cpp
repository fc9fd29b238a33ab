// SPDX-License-Identifier: MIT
#include "PanelOnScreen.h"

#include "Windows.h"

#include <utility>

namespace sablequill {

PanelOnScreen::PanelOnScreen(const XConnection& connection, std::string role)
    : x(connection)
    , role(std::move(role))
{
}

std::optional<xcb_window_t> PanelOnScreen::window() const
{
    return findWindow(x, {"Sablequill", role});
}

bool PanelOnScreen::isShown() const
{
    const auto id = window();
    return id && isViewable(x, *id);
}

bool PanelOnScreen::isAbove(xcb_window_t other) const
{
    const auto id = window();
    return id && sablequill::isAbove(x, *id, other);
}

bool PanelOnScreen::hasKeyboard() const
{
    const auto id = window();
    return id && sablequill::hasKeyboard(x, *id);
}

Area PanelOnScreen::card() const
{
    const auto id = window();
    return id ? inputAreaOf(x, *id).value_or(Area{}) : Area{};
}

} // namespace sablequill
