// SPDX-License-Identifier: MIT
#include "XServer.h"

#include <QGuiApplication>
#include <QWindow>

#include <algorithm>
#include <utility>
#include <xcb/xinput.h>

namespace sablequill {
namespace {

xcb_connection_t* toolkitConnection()
{
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    Q_ASSERT(x11);
    return x11->connection();
}

/// The toolkit works on the first screen that DISPLAY names; so does this program.
xcb_window_t rootOf(xcb_connection_t* connection)
{
    return xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
}

xcb_intern_atom_cookie_t askForAtom(xcb_connection_t* connection, std::string_view name)
{
    return xcb_intern_atom(connection, false, static_cast<std::uint16_t>(name.size()), name.data());
}

/// What every session asks for while it starts.
constexpr std::string_view startNames[] = {
    "_NET_ACTIVE_WINDOW", "_NET_SUPPORTING_WM_CHECK", "_NET_WM_CM_S0", "WM_STATE"};

} // namespace

XServer::XServer()
    : connection(toolkitConnection())
    , root(rootOf(connection))
    , screenNumber(0)
{
    // Together: the program waits for each journey to the server and back.
    xcb_prefetch_extension_data(connection, &xcb_input_id);
    atoms(startNames);
}

xcb_atom_t XServer::atom(std::string_view name) const
{
    return atoms({&name, 1}).front();
}

std::vector<xcb_atom_t> XServer::atoms(std::span<const std::string_view> names) const
{
    std::vector<std::pair<std::string_view, xcb_intern_atom_cookie_t>> questions;
    for (const std::string_view name : names) {
        if (!knownAtoms.contains(name))
            questions.emplace_back(name, askForAtom(connection, name));
    }
    for (const auto& [name, cookie] : questions) {
        const XReply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookie, nullptr));
        if (reply)
            knownAtoms.emplace(name, reply->atom);
    }
    std::vector<xcb_atom_t> found;
    for (const std::string_view name : names) {
        const auto known = knownAtoms.find(name);
        found.push_back(known == knownAtoms.end() ? noAtom : known->second);
    }
    return found;
}

void XServer::addEventMask(xcb_window_t window, std::uint32_t mask) const
{
    const XReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, window), nullptr));
    if (!attributes)
        return;
    const std::uint32_t combined = attributes->your_event_mask | mask;
    xcb_discard_reply(connection,
        xcb_change_window_attributes_checked(connection, window, XCB_CW_EVENT_MASK, &combined)
            .sequence);
}

std::optional<xcb_window_t> XServer::windowProperty(xcb_window_t window, xcb_atom_t property) const
{
    const auto cookie =
        xcb_get_property(connection, false, window, property, XCB_ATOM_WINDOW, 0, 1);
    const XReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32 || reply->value_len < 1)
        return std::nullopt;
    const auto value = *static_cast<const xcb_window_t*>(xcb_get_property_value(reply.get()));
    return value == noWindow ? std::nullopt : std::optional(value);
}

bool XServer::hasProperty(xcb_window_t window, xcb_atom_t property) const
{
    const auto cookie =
        xcb_get_property(connection, false, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, 0);
    const XReply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    return reply && reply->type != noAtom;
}

std::vector<xcb_window_t> XServer::children(xcb_window_t window) const
{
    const XReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    if (!tree)
        return {};
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    return {first, first + xcb_query_tree_children_length(tree.get())};
}

xcb_window_t XServer::parent(xcb_window_t window) const
{
    const XReply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection, xcb_query_tree(connection, window), nullptr));
    return tree ? tree->parent : noWindow;
}

bool XServer::isInside(xcb_window_t window, xcb_window_t ancestor) const
{
    while (window > XCB_INPUT_FOCUS_POINTER_ROOT && window != ancestor)
        window = parent(window);
    return window == ancestor;
}

bool XServer::isViewable(xcb_window_t window) const
{
    const XReply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        connection, xcb_get_window_attributes(connection, window), nullptr));
    return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

QRect XServer::frame(xcb_window_t window) const
{
    const auto sizeCookie = xcb_get_geometry(connection, window);
    const auto placeCookie = xcb_translate_coordinates(connection, window, root, 0, 0);
    const XReply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection, sizeCookie, nullptr));
    const XReply<xcb_translate_coordinates_reply_t> place(
        xcb_translate_coordinates_reply(connection, placeCookie, nullptr));
    if (!size || !place)
        return {};
    return {place->dst_x, place->dst_y, size->width, size->height};
}

bool XServer::isOwn(xcb_window_t window) const
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(),
        [&](const QWindow* own) { return own->handle() && own->winId() == window; });
}

bool XServer::isOwnPanel(xcb_window_t window) const
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return std::any_of(windows.begin(), windows.end(), [&](const QWindow* own) {
        return own->handle() && own->winId() == window
            && own->flags().testFlag(Qt::BypassWindowManagerHint);
    });
}

xcb_window_t XServer::windowUnderPointer() const
{
    const XReply<xcb_query_pointer_reply_t> reply(
        xcb_query_pointer_reply(connection, xcb_query_pointer(connection, root), nullptr));
    return reply ? reply->child : noWindow;
}

std::optional<xcb_window_t> XServer::activeWindow() const
{
    // The manager's own window ends with it; what it said about others stays on the root.
    const xcb_atom_t check = atom("_NET_SUPPORTING_WM_CHECK");
    const std::optional<xcb_window_t> manager = windowProperty(root, check);
    if (!manager || windowProperty(*manager, check) != manager)
        return std::nullopt;
    return windowProperty(root, atom("_NET_ACTIVE_WINDOW"));
}

xcb_window_t XServer::focusedWindow() const
{
    const XReply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
    return reply ? reply->focus : noWindow;
}

void XServer::setFocus(xcb_window_t window) const
{
    // The time is the server's: one remembered from an earlier event is refused when it lies before
    // the last change of focus.
    const auto cookie =
        xcb_set_input_focus_checked(connection, XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_discard_reply(connection, cookie.sequence);
    xcb_flush(connection);
}

void XServer::sendToManager(xcb_window_t window, std::string_view message,
    std::initializer_list<std::uint32_t> values) const
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::copy(values.begin(), values.end(), std::begin(event.data.data32));
    // The server reads as much as the longest event has.
    static_assert(sizeof event == 32);
    xcb_send_event(connection, 0, root,
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&event));
}

XEventFilter::XEventFilter(std::function<bool(const xcb_generic_event_t&)> filter)
    : filter(std::move(filter))
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

XEventFilter::~XEventFilter()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool XEventFilter::nativeEventFilter(const QByteArray&, void* message, qintptr*)
{
    return filter(*static_cast<const xcb_generic_event_t*>(message));
}

} // namespace sablequill
