// SPDX-License-Identifier: MIT
#include "X11HotKeyCenter.h"

#include "KeyPositions.h"

#include <algorithm>
#include <chrono>

// The header names a member as a keyword of C++.
#define explicit explicitMembers
#include <xcb/xkb.h>
#undef explicit

namespace sablequill {
namespace {

using namespace std::chrono_literals;

std::uint8_t firstXkbEvent(xcb_connection_t* connection)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_xkb_id);
    return extension && extension->present ? extension->first_event : 0;
}

} // namespace

X11HotKeyCenter::X11HotKeyCenter(const XServer& server)
    : server(server)
    , xkbFirstEvent(firstXkbEvent(server.connection))
    , keyboard(KeyboardMap::read(server))
    , filter([this](const auto& event) { return filterEvent(event); })
{
    // One change of layout comes as a burst of events.
    settle.setSingleShot(true);
    settle.setInterval(200ms);
    QObject::connect(&settle, &QTimer::timeout, &settle, [this] { followMapping(); });
}

EventHandlerRef X11HotKeyCenter::installEventHandler(
    HotKeyHandler handler, EventTypeSpec spec, void* userData)
{
    return dispatchers.install(handler, spec, userData);
}

std::optional<HotKeyRef> X11HotKeyCenter::registerHotKey(
    std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id)
{
    const std::optional<Grab> grabbed = grab(keyCode, modifiers);
    if (!grabbed)
        return std::nullopt;
    const HotKeyRef ref{++lastRef};
    hotKeys.emplace(ref, HotKey{keyCode, modifiers, id, grabbed});
    return ref;
}

void X11HotKeyCenter::unregisterHotKey(HotKeyRef hotKey)
{
    const auto found = hotKeys.find(hotKey);
    if (found == hotKeys.end())
        return;
    if (found->second.grab)
        ungrab(*found->second.grab);
    hotKeys.erase(found);
}

std::optional<X11HotKeyCenter::Grab> X11HotKeyCenter::grab(
    std::uint32_t keyCode, std::uint32_t modifiers) const
{
    const auto key = serverKeyCode(keyCode);
    const auto mask = keyboard.serverMask(modifiers);
    if (!key || !mask)
        return std::nullopt;
    std::vector<xcb_void_cookie_t> requests;
    for (const std::uint16_t locks : keyboard.lockVariants()) {
        requests.push_back(xcb_grab_key_checked(server.connection, false, server.root,
            static_cast<std::uint16_t>(*mask | locks), *key, XCB_GRAB_MODE_ASYNC,
            XCB_GRAB_MODE_ASYNC));
    }
    // Every answer is read, so that none is left for the toolkit to report.
    const auto refused = std::count_if(requests.begin(), requests.end(), [&](auto request) {
        return XReply<xcb_generic_error_t>(xcb_request_check(server.connection, request))
            != nullptr;
    });
    const Grab grabbed{*key, *mask};
    if (refused == 0)
        return grabbed;
    ungrab(grabbed);
    return std::nullopt;
}

void X11HotKeyCenter::ungrab(const Grab& grabbed) const
{
    for (const std::uint16_t locks : keyboard.lockVariants()) {
        xcb_ungrab_key(server.connection, grabbed.key, server.root,
            static_cast<std::uint16_t>(grabbed.mask | locks));
    }
    xcb_flush(server.connection);
}

void X11HotKeyCenter::followMapping()
{
    const KeyboardMap next = KeyboardMap::read(server);
    // Most changes leave the modifiers where they were: grabs are by position and stay, so that no
    // press is lost meanwhile.
    if (next != keyboard)
        releaseAll();
    keyboard = next;
    for (auto& [ref, hotKey] : hotKeys) {
        if (!hotKey.grab)
            hotKey.grab = grab(hotKey.keyCode, hotKey.modifiers);
    }
}

void X11HotKeyCenter::releaseAll()
{
    for (auto& [ref, hotKey] : hotKeys) {
        if (hotKey.grab)
            ungrab(*hotKey.grab);
        hotKey.grab.reset();
    }
    heldKey = 0;
}

bool X11HotKeyCenter::filterEvent(const xcb_generic_event_t& event)
{
    if (isMappingChange(event))
        settle.start();
    else if (eventType(event) == XCB_KEY_PRESS)
        return handlePress(eventAs<xcb_key_press_event_t>(event));
    else if (eventType(event) == XCB_KEY_RELEASE)
        handleRelease(eventAs<xcb_key_release_event_t>(event));
    return false;
}

bool X11HotKeyCenter::isMappingChange(const xcb_generic_event_t& event) const
{
    if (eventType(event) == XCB_MAPPING_NOTIFY)
        return true;
    if (xkbFirstEvent == 0 || eventType(event) != xkbFirstEvent)
        return false;
    // All events of the extension have one type; which it is stands where others keep a detail.
    const int xkbType = eventAs<xcb_xkb_map_notify_event_t>(event).xkbType;
    return xkbType == XCB_XKB_NEW_KEYBOARD_NOTIFY || xkbType == XCB_XKB_MAP_NOTIFY;
}

bool X11HotKeyCenter::handlePress(const xcb_key_press_event_t& press)
{
    if (press.event != server.root)
        return false;
    const Grab pressed{
        press.detail, static_cast<std::uint16_t>(press.state & keyboard.significantMask())};
    const auto found = std::find_if(hotKeys.begin(), hotKeys.end(),
        [&](const auto& entry) { return entry.second.grab == pressed; });
    if (found == hotKeys.end())
        return false;
    const bool isRepeat =
        heldKey == press.detail || (releasedKey == press.detail && releasedAt == press.time);
    heldKey = press.detail;
    if (!isRepeat)
        dispatchers.dispatch({found->second.id});
    return true;
}

void X11HotKeyCenter::handleRelease(const xcb_key_release_event_t& release)
{
    if (release.detail != heldKey)
        return;
    heldKey = 0;
    releasedKey = release.detail;
    releasedAt = release.time;
}

} // namespace sablequill
