// SPDX-License-Identifier: MIT
#pragma once

#include "Geometry.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace sablequill {

struct FreeDeleter {
    void operator()(void* pointer) const { std::free(pointer); }
};

/// A reply, an event or an error of the X server.
template <typename T> using XOwned = std::unique_ptr<T, FreeDeleter>;

/// One client of an X server.
class XConnection {
public:
    /// Throws std::runtime_error when the server does not answer.
    explicit XConnection(const std::string& displayName);

    static bool isPossible(const std::string& displayName);

    xcb_connection_t* get() const { return connection.get(); }
    const xcb_screen_t& screen() const;
    xcb_window_t root() const { return screen().root; }
    Area screenArea() const;

    /// Returns when the server has carried out everything that was asked so far.
    void sync() const;
    xcb_atom_t atom(const std::string& name) const;
    XOwned<xcb_generic_event_t> nextEvent() const;

    /// The 32-bit items of a property, empty when it is absent.
    std::vector<uint32_t> property(xcb_window_t window, const std::string& name) const;
    /// A text property with its null characters kept, empty when it is absent.
    std::string textProperty(xcb_window_t window, const std::string& name) const;
    /// Sends a client message of format 32 about a window to the root, as EWMH has it.
    void sendToRoot(
        xcb_window_t window, const std::string& type, const std::vector<uint32_t>& data) const;

private:
    struct Disconnect {
        void operator()(xcb_connection_t* pointer) const { xcb_disconnect(pointer); }
    };

    std::unique_ptr<xcb_connection_t, Disconnect> connection;
};

} // namespace sablequill
