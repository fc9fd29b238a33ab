// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractNativeEventFilter>
#include <QRect>

#include <cstdlib>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>
#include <xcb/xcb.h>

namespace sablequill {

inline constexpr xcb_window_t noWindow = XCB_WINDOW_NONE;
inline constexpr xcb_atom_t noAtom = XCB_ATOM_NONE;

/// EWMH: a request comes from what the user works with, not from the window itself.
inline constexpr std::uint32_t fromPager = 2;

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};

/// A reply or an event of the X server, owned.
template <typename T> using XReply = std::unique_ptr<T, FreeDeleter>;

/// The toolkit's own connection to the X server and what the program asks over it. Errors are
/// swallowed: windows of other programs come and go at any time.
class XServer {
public:
    XServer();

    xcb_connection_t* const connection;
    const xcb_window_t root;
    const int screenNumber;

    /// Asks the server for each name once.
    xcb_atom_t atom(std::string_view name) const;
    /// The same for some names, all in one journey to the server and back.
    std::vector<xcb_atom_t> atoms(std::span<const std::string_view> names) const;
    /// Adds to what this program hears of a window, keeping what it hears already.
    void addEventMask(xcb_window_t window, std::uint32_t mask) const;
    std::optional<xcb_window_t> windowProperty(xcb_window_t window, xcb_atom_t property) const;
    bool hasProperty(xcb_window_t window, xcb_atom_t property) const;
    /// From bottom to top in stacking order.
    std::vector<xcb_window_t> children(xcb_window_t window) const;
    /// None for the root and for windows that are gone.
    xcb_window_t parent(xcb_window_t window) const;
    /// Whether `window` is `ancestor` or lies inside it.
    bool isInside(xcb_window_t window, xcb_window_t ancestor) const;
    bool isViewable(xcb_window_t window) const;
    /// In pixels, on the root; empty for windows that are gone.
    QRect frame(xcb_window_t window) const;
    /// Whether `window` is a top-level window of this program.
    bool isOwn(xcb_window_t window) const;
    /// Whether that window of this program is none that a window manager knows of.
    bool isOwnPanel(xcb_window_t window) const;
    /// The child of the root under the pointer, with regard to input shapes; none over the bare
    /// root.
    xcb_window_t windowUnderPointer() const;
    /// The window that the window manager calls active, if there is a manager and it names one.
    std::optional<xcb_window_t> activeWindow() const;
    xcb_window_t focusedWindow() const;
    void setFocus(xcb_window_t window) const;
    /// Sends the window manager a message about `window`, as EWMH has it. Not sent out yet: a flush
    /// or the next question to the server does that.
    void sendToManager(xcb_window_t window, std::string_view message,
        std::initializer_list<std::uint32_t> values) const;

private:
    mutable std::map<std::string, xcb_atom_t, std::less<>> knownAtoms;
};

/// Hands every event of the toolkit's connection to a function, before the toolkit sees it, for as
/// long as this object lives. The function returns true to keep the event from the toolkit.
class XEventFilter : private QAbstractNativeEventFilter {
public:
    explicit XEventFilter(std::function<bool(const xcb_generic_event_t& event)> filter);
    ~XEventFilter() override;

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    std::function<bool(const xcb_generic_event_t&)> filter;
};

/// The event's type without the bit that tells who sent it.
inline int eventType(const xcb_generic_event_t& event)
{
    return event.response_type & 0x7f;
}

/// The event as the structure that its type stands for.
template <typename T> const T& eventAs(const xcb_generic_event_t& event)
{
    return reinterpret_cast<const T&>(event);
}

} // namespace sablequill
