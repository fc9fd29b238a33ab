// SPDX-License-Identifier: MIT
#include "XConnection.h"

#include <algorithm>
#include <stdexcept>

namespace sablequill {

namespace {

constexpr uint32_t longestProperty = 1 << 16;

XOwned<xcb_get_property_reply_t> propertyReply(
    const XConnection& x, xcb_window_t window, const std::string& name)
{
    const auto cookie = xcb_get_property(
        x.get(), 0, window, x.atom(name), XCB_GET_PROPERTY_TYPE_ANY, 0, longestProperty);
    return XOwned<xcb_get_property_reply_t>(xcb_get_property_reply(x.get(), cookie, nullptr));
}

} // namespace

XConnection::XConnection(const std::string& displayName)
    : connection(xcb_connect(displayName.c_str(), nullptr))
{
    if (xcb_connection_has_error(connection.get()))
        throw std::runtime_error("no connection to display " + displayName);
}

bool XConnection::isPossible(const std::string& displayName)
{
    const std::unique_ptr<xcb_connection_t, Disconnect> trial(
        xcb_connect(displayName.c_str(), nullptr));
    return !xcb_connection_has_error(trial.get());
}

const xcb_screen_t& XConnection::screen() const
{
    return *xcb_setup_roots_iterator(xcb_get_setup(get())).data;
}

Area XConnection::screenArea() const
{
    return {0, 0, screen().width_in_pixels, screen().height_in_pixels};
}

void XConnection::sync() const
{
    const XOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
    if (!reply)
        throw std::runtime_error("the X server is gone");
}

xcb_atom_t XConnection::atom(const std::string& name) const
{
    const auto cookie = xcb_intern_atom(get(), 0, static_cast<uint16_t>(name.size()), name.c_str());
    const XOwned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(get(), cookie, nullptr));
    if (!reply)
        throw std::runtime_error("the X server is gone");
    return reply->atom;
}

XOwned<xcb_generic_event_t> XConnection::nextEvent() const
{
    return XOwned<xcb_generic_event_t>(xcb_poll_for_event(get()));
}

std::vector<uint32_t> XConnection::property(xcb_window_t window, const std::string& name) const
{
    const auto reply = propertyReply(*this, window, name);
    if (!reply || reply->format != 32)
        return {};
    const auto* items = static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    return {items, items + reply->value_len};
}

std::string XConnection::textProperty(xcb_window_t window, const std::string& name) const
{
    const auto reply = propertyReply(*this, window, name);
    if (!reply || reply->format != 8)
        return {};
    const auto* bytes = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {bytes, static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

void XConnection::sendToRoot(
    xcb_window_t window, const std::string& type, const std::vector<uint32_t>& data) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom(type);
    std::copy_n(data.begin(), std::min<std::size_t>(data.size(), 5), message.data.data32);
    xcb_send_event(get(), 0, root(),
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&message));
    sync();
}

} // namespace sablequill
