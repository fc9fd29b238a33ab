// SPDX-License-Identifier: MIT
#include "DesktopPlatform.h"

namespace sablequill {

bool DesktopPlatform::isAvailable()
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    return xcb_connection_has_error(connection.get()) == 0;
}

Platform DesktopPlatform::platform()
{
    return {panels, screens, hotKeys.center(), loginItem, application, mainQueue};
}

} // namespace sablequill
