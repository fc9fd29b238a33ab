// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyCenter.h"
#include "HotKeyDispatchers.h"
#include "KeyboardMap.h"
#include "XServer.h"

#include <QTimer>

#include <map>

namespace sablequill {

/// System-wide hot keys by passive grabs on the root window. Grabs follow changes of the keyboard's
/// layout and modifiers.
class X11HotKeyCenter final : public HotKeyCenter {
public:
    /// The server outlives the center.
    explicit X11HotKeyCenter(const XServer& server);

    EventHandlerRef installEventHandler(
        HotKeyHandler handler, EventTypeSpec spec, void* userData) override;
    std::optional<HotKeyRef> registerHotKey(
        std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id) override;
    void unregisterHotKey(HotKeyRef hotKey) override;
    HotKeyHolder& holder() override { return program; }

private:
    struct Grab {
        xcb_keycode_t key = 0;
        std::uint16_t mask = 0;

        bool operator==(const Grab&) const = default;
    };

    struct HotKey {
        std::uint32_t keyCode = 0;
        std::uint32_t modifiers = 0;
        HotKeyID id;
        /// Absent while the keyboard or another program does not allow it.
        std::optional<Grab> grab;
    };

    std::optional<Grab> grab(std::uint32_t keyCode, std::uint32_t modifiers) const;
    void ungrab(const Grab& grab) const;
    void followMapping();
    void releaseAll();

    bool filterEvent(const xcb_generic_event_t& event);
    bool isMappingChange(const xcb_generic_event_t& event) const;
    bool handlePress(const xcb_key_press_event_t& press);
    void handleRelease(const xcb_key_release_event_t& release);

    HotKeyHolder program;
    const XServer& server;
    const std::uint8_t xkbFirstEvent;
    KeyboardMap keyboard;
    std::map<HotKeyRef, HotKey> hotKeys;
    HotKeyDispatchers dispatchers;
    std::uint64_t lastRef = 0;

    /// The hot key that is held down, and when a release of it was last seen: a keyboard that
    /// repeats reports a release and a press of the same time.
    xcb_keycode_t heldKey = 0;
    xcb_keycode_t releasedKey = 0;
    xcb_timestamp_t releasedAt = 0;

    QTimer settle;
    XEventFilter filter;
};

} // namespace sablequill
