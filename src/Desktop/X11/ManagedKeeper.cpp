// SPDX-License-Identifier: MIT
#include "ManagedKeeper.h"

#include "HyprlandPin.h"

#include <utility>

namespace sablequill {
namespace {

constexpr std::uint32_t allWorkspaces = 0xffffffff;
/// EWMH: as against removing or toggling.
constexpr std::uint32_t addState = 1;

} // namespace

ManagedKeeper::ManagedKeeper(const XServer& server, PressWatch& presses, HyprlandPin* pin,
    const std::optional<QString>& hyprlandSocket)
    : server(server)
    , presses(presses)
    , pin(pin)
    , claim(server)
    , filter([this](const auto& event) { return filterEvent(event); })
{
    if (hyprlandSocket) {
        focus.emplace(*hyprlandSocket);
        // The compositor leaves that to whoever had it, when the window was hidden meanwhile.
        QObject::connect(
            &*focus, &HyprlandFocus::focused, &context, [this] { this->server.setFocus(window); });
    }
    QObject::connect(&presses, &PressWatch::pressedElsewhere, &context, [this] {
        if (isListening && !isDragged && onPressElsewhere)
            onPressElsewhere();
    });
}

ManagedKeeper::~ManagedKeeper()
{
    watchPresses(false);
}

void ManagedKeeper::willShow(QWidget& shown)
{
    window = static_cast<xcb_window_t>(shown.winId());
    hidden = noWindow;
    // KWin takes the first type and puts it above an active full-screen window, mutter the second.
    // Compositors that tile leave a window alone for having the third one anywhere in the list.
    setAtoms("_NET_WM_WINDOW_TYPE",
        {"_KDE_NET_WM_WINDOW_TYPE_CRITICAL_NOTIFICATION", "_NET_WM_WINDOW_TYPE_NOTIFICATION",
            "_NET_WM_WINDOW_TYPE_UTILITY", "_NET_WM_WINDOW_TYPE_NORMAL"});
    if (shown.isVisible())
        return;
    // A window manager deletes both when a window is unmapped.
    setAtoms("_NET_WM_STATE",
        {"_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY", "_NET_WM_STATE_SKIP_TASKBAR",
            "_NET_WM_STATE_SKIP_PAGER"});
    xcb_change_property(server.connection, XCB_PROP_MODE_REPLACE, window,
        server.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1, &allWorkspaces);
}

void ManagedKeeper::didShow(QWidget&)
{
    // Once more for a window that was unmapped just before, whose properties were then deleted.
    requestStates("_NET_WM_STATE_ABOVE", "_NET_WM_STATE_STICKY");
    requestStates("_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER");
    server.sendToManager(window, "_NET_WM_DESKTOP", {allWorkspaces, fromPager});
    xcb_flush(server.connection);
    if (pin)
        pin->pinPanels();
}

void ManagedKeeper::willHide()
{
    claim.stop();
    if (focus)
        focus->stop();
    watchPresses(false);
    if (window != noWindow)
        hidden = std::exchange(window, noWindow);
}

void ManagedKeeper::keepOnTop(bool)
{
    // The compositor does, by the window's type.
}

void ManagedKeeper::takeKeyboard()
{
    if (window == noWindow || server.isInside(server.focusedWindow(), window))
        return;
    if (focus)
        focus->focusPanel(server.frame(window));
    else
        claim.start(window);
}

void ManagedKeeper::setDragging(bool isDragging)
{
    isDragged = isDragging;
}

void ManagedKeeper::watchPresses(bool isWatching)
{
    if (std::exchange(isListening, isWatching) == isWatching)
        return;
    if (isWatching)
        presses.addListener();
    else
        presses.removeListener();
}

void ManagedKeeper::setAtoms(
    std::string_view property, std::initializer_list<std::string_view> values) const
{
    std::vector<xcb_atom_t> atoms;
    for (const std::string_view value : values)
        atoms.push_back(server.atom(value));
    xcb_change_property(server.connection, XCB_PROP_MODE_REPLACE, window, server.atom(property),
        XCB_ATOM_ATOM, 32, static_cast<std::uint32_t>(atoms.size()), atoms.data());
}

void ManagedKeeper::requestStates(std::string_view first, std::string_view second) const
{
    server.sendToManager(
        window, "_NET_WM_STATE", {addState, server.atom(first), server.atom(second), fromPager});
}

bool ManagedKeeper::filterEvent(const xcb_generic_event_t& event) const
{
    // A manager that had not come to showing a window when that was hidden shows it nonetheless.
    if (hidden != noWindow && eventType(event) == XCB_MAP_NOTIFY
        && eventAs<xcb_map_notify_event_t>(event).window == hidden) {
        xcb_unmap_window(server.connection, hidden);
        xcb_flush(server.connection);
    }
    return false;
}

} // namespace sablequill
