// SPDX-License-Identifier: MIT
#pragma once

#include "HotKeyHolder.h"

#include <cstdint>
#include <optional>

namespace sablequill {

/// What a dispatcher answers to an event.
namespace HotKeyStatus {
inline constexpr std::int32_t noError = 0;
inline constexpr std::int32_t eventNotHandled = -9874;
} // namespace HotKeyStatus

/// Four ASCII characters packed big-endian into 32 bits.
constexpr std::uint32_t fourCharacterCode(const char (&code)[5])
{
    std::uint32_t packed = 0;
    for (int i = 0; i < 4; ++i)
        packed = packed << 8 | static_cast<unsigned char>(code[i]);
    return packed;
}

struct HotKeyID {
    std::uint32_t signature = 0;
    std::uint32_t id = 0;

    bool operator==(const HotKeyID&) const = default;
};

/// The kind of event that a dispatcher is installed for.
struct EventTypeSpec {
    std::uint32_t eventClass = 0;
    std::uint32_t eventKind = 0;

    bool operator==(const EventTypeSpec&) const = default;
};

inline constexpr EventTypeSpec hotKeyPressed{fourCharacterCode("keyb"), 5};

/// A press of a registered hot key.
struct HotKeyEvent {
    HotKeyID hotKeyID;
};

using HotKeyHandler = std::int32_t (*)(const HotKeyEvent& event, void* userData);

enum class EventHandlerRef : std::uint64_t {};
enum class HotKeyRef : std::uint64_t {};

/// System-wide hot keys. One press of a held key is one event, however long it is held.
class HotKeyCenter {
public:
    /// Adds a dispatcher; the newest is asked first, an older one only when it answers
    /// `eventNotHandled`. The user data outlives the center.
    virtual EventHandlerRef installEventHandler(
        HotKeyHandler handler, EventTypeSpec spec, void* userData) = 0;
    /// Nothing when the key has no position on this keyboard, when a modifier is missing from it,
    /// or when another program owns the combination.
    ///
    /// `keyCode` is a virtual key code (a physical position of the ANSI layout), `modifiers` a mask
    /// of 256 (command), 512 (shift), 2048 (option) and 4096 (control).
    virtual std::optional<HotKeyRef> registerHotKey(
        std::uint32_t keyCode, std::uint32_t modifiers, HotKeyID id) = 0;
    virtual void unregisterHotKey(HotKeyRef hotKey) = 0;
    /// Who holds what is registered.
    virtual HotKeyHolder& holder() = 0;

protected:
    ~HotKeyCenter() = default;
};

} // namespace sablequill
