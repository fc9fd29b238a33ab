// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <memory>
#include <set>
#include <vector>
#include <xcb/xcb.h>

namespace sablequill {

class XConnection;

/// A window manager of the display that DISPLAY names, with a window of another program that is
/// active at first and whenever the active window goes.
class StubWindowManager {
public:
    /// Throws std::runtime_error when there is no such display, or it has a manager.
    StubWindowManager();
    ~StubWindowManager();

    /// Takes in what has come, and does the oldest of it unless it is busy.
    void work();

    /// Whether it leaves everything for later.
    bool isBusy = false;
    /// Whether it makes a window active that asks for it, a new window, and the one that a program
    /// has given the focus to.
    bool grantsRequests = true;
    bool activatesNew = true;
    bool followsFocus = false;

    bool isActive(xcb_window_t window) const { return active == window; }
    bool isClientActive() const { return isActive(client); }
    /// As if the user clicked on it.
    void activateClient() { activate(client); }
    bool hasRequest() const;
    bool hasNewWindow() const;
    bool isIdle() const { return events.empty(); }

    int requests = 0;
    std::vector<xcb_window_t> managed;

private:
    void occupyDisplay() const;
    bool has(int type) const;
    void handle(const xcb_generic_event_t& event);
    void manage(xcb_window_t window);
    void forget(xcb_window_t window);
    void activate(xcb_window_t window);
    /// The events tell of changes that may have been overtaken.
    xcb_window_t focusedWindow() const;
    void setWindowProperty(xcb_window_t on, const char* name, xcb_window_t value) const;

    const std::unique_ptr<XConnection> x;
    const xcb_window_t check;
    const xcb_window_t client;
    xcb_window_t active = XCB_WINDOW_NONE;
    std::deque<std::shared_ptr<const xcb_generic_event_t>> events;
};

} // namespace sablequill
