// SPDX-License-Identifier: MIT
#include "XEmbedStatusArea.h"

#include <stdexcept>

namespace sablequill {

XEmbedStatusArea::XEmbedStatusArea(
    const XConnection& connection, const std::string& displayName, const PrivateHome& home)
    : x(connection)
{
    auto environment = home.environment();
    environment["DISPLAY"] = displayName;
    environment["NO_AT_BRIDGE"] = "1";
    program = std::make_unique<ChildProcess>(
        ChildProcessDescription{{"trayer", "--edge", "top", "--align", "right", "--widthtype",
                                    "request", "--heighttype", "pixel", "--height", "24"},
            environment, home.path() / "trayer.log"});
    if (!waitUntil([this] { return isThere(); }))
        throw std::runtime_error("no status area came up: " + program->output());
}

XEmbedStatusArea::~XEmbedStatusArea()
{
    program.reset();
    waitUntil([this] { return !isThere(); });
}

bool XEmbedStatusArea::isThere() const
{
    const XOwned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        x.get(), xcb_get_selection_owner(x.get(), x.atom("_NET_SYSTEM_TRAY_S0")), nullptr));
    return reply && reply->owner != XCB_NONE;
}

} // namespace sablequill
