// SPDX-License-Identifier: MIT
#include "StubWindowManager.h"

#include "harness/XConnection.h"

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

namespace sablequill {
namespace {

int typeOf(const xcb_generic_event_t& event)
{
    return event.response_type & 0x7f;
}

template <typename T> const T& as(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const T&>(event);
}

xcb_window_t makeWindow(const XConnection& x)
{
    const xcb_window_t window = xcb_generate_id(x.get());
    const std::uint32_t isUnmanaged = 1;
    xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, window, x.root(), 0, 0, 50, 50, 0,
        XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT,
        &isUnmanaged);
    xcb_map_window(x.get(), window);
    return window;
}

} // namespace

StubWindowManager::StubWindowManager()
    : x(std::make_unique<XConnection>(std::getenv("DISPLAY")))
    , check(makeWindow(*x))
    , client(makeWindow(*x))
{
    occupyDisplay();
    for (const xcb_window_t window : {x->root(), check})
        setWindowProperty(window, "_NET_SUPPORTING_WM_CHECK", check);
    activate(client);
    x->sync();
}

StubWindowManager::~StubWindowManager() = default;

void StubWindowManager::occupyDisplay() const
{
    const std::uint32_t mask =
        XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const auto cookie =
        xcb_change_window_attributes_checked(x->get(), x->root(), XCB_CW_EVENT_MASK, &mask);
    const XOwned<xcb_generic_error_t> error(xcb_request_check(x->get(), cookie));
    if (error)
        throw std::runtime_error("there is another window manager");
}

void StubWindowManager::work()
{
    while (auto event = x->nextEvent())
        events.emplace_back(event.release(), FreeDeleter());
    if (isBusy || events.empty())
        return;
    const auto event = events.front();
    events.pop_front();
    handle(*event);
    x->sync();
}

bool StubWindowManager::hasRequest() const
{
    return has(XCB_CLIENT_MESSAGE);
}

bool StubWindowManager::hasNewWindow() const
{
    return has(XCB_MAP_REQUEST);
}

bool StubWindowManager::has(int type) const
{
    return std::any_of(
        events.begin(), events.end(), [type](const auto& event) { return typeOf(*event) == type; });
}

void StubWindowManager::handle(const xcb_generic_event_t& event)
{
    switch (typeOf(event)) {
    case XCB_MAP_REQUEST:
        manage(as<xcb_map_request_event_t>(event).window);
        break;
    case XCB_UNMAP_NOTIFY:
        forget(as<xcb_unmap_notify_event_t>(event).window);
        break;
    case XCB_FOCUS_IN:
        if (followsFocus)
            activate(focusedWindow());
        break;
    case XCB_CLIENT_MESSAGE: {
        const auto& message = as<xcb_client_message_event_t>(event);
        if (message.type != x->atom("_NET_ACTIVE_WINDOW"))
            break;
        ++requests;
        if (grantsRequests)
            activate(message.window);
        break;
    }
    default:
        break;
    }
}

void StubWindowManager::manage(xcb_window_t window)
{
    managed.push_back(window);
    const std::uint32_t mask = XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(x->get(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_map_window(x->get(), window);
    const std::uint32_t normalState[] = {1, XCB_WINDOW_NONE};
    const xcb_atom_t state = x->atom("WM_STATE");
    xcb_change_property(x->get(), XCB_PROP_MODE_REPLACE, window, state, state, 32, 2, normalState);
    if (activatesNew)
        activate(window);
}

void StubWindowManager::forget(xcb_window_t window)
{
    if (active == window)
        activate(client);
}

void StubWindowManager::activate(xcb_window_t window)
{
    active = window;
    setWindowProperty(x->root(), "_NET_ACTIVE_WINDOW", window);
    xcb_set_input_focus(x->get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
    xcb_flush(x->get());
}

xcb_window_t StubWindowManager::focusedWindow() const
{
    const XOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(x->get(), xcb_get_input_focus(x->get()), nullptr));
    return reply ? reply->focus : xcb_window_t(XCB_WINDOW_NONE);
}

void StubWindowManager::setWindowProperty(
    xcb_window_t on, const char* name, xcb_window_t value) const
{
    xcb_change_property(
        x->get(), XCB_PROP_MODE_REPLACE, on, x->atom(name), XCB_ATOM_WINDOW, 32, 1, &value);
}

} // namespace sablequill
