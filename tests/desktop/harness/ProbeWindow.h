// SPDX-License-Identifier: MIT
#pragma once

#include "XConnection.h"

#include <QColor>

#include <string>
#include <vector>

namespace sablequill {

struct ProbeDescription {
    bool isFullScreen = true;
    /// Where a window that is not full-screen goes.
    Area area = {40, 40, 400, 300};
    QColor color = QColor(0, 0, 255);
};

/// A window of another program, over a connection of its own: one color, and a record of what the
/// keyboard does with it. Like most programs it never takes the focus itself, except at its start
/// where no window manager gives it.
class ProbeWindow {
public:
    /// Not shown yet.
    explicit ProbeWindow(const std::string& displayName, ProbeDescription description = {});
    ProbeWindow(const ProbeWindow&) = delete;
    ProbeWindow& operator=(const ProbeWindow&) = delete;
    ~ProbeWindow();

    /// Returns when it is on the screen, at its place, with the keyboard. Throws std::runtime_error
    /// when it does not come there.
    void show();
    /// Returns when the window manager has taken it on, which may leave it behind another window.
    /// Throws std::runtime_error when it does not.
    void open();
    void hide();
    /// Asks for the place above its siblings, as a program that presents itself does.
    void raise();
    /// Asks the window manager for the keyboard as a task bar does; without one, takes it.
    void activate();
    void setColor(const QColor& color);
    QColor color() const { return description.color; }
    /// Grabs the key with these modifiers on the root, as another program with global keys does.
    /// False when someone has it already.
    bool grabKey(xcb_keycode_t code, uint16_t modifiers);

    xcb_window_t window() const { return id; }
    bool hasFocus() const;
    /// The codes of the keys pressed since the last clearRecord(); those of grabbed keys too.
    const std::vector<xcb_keycode_t>& pressedKeys();
    bool receivedKey(xcb_keycode_t code);
    /// How often the focus went away since the last clearRecord(). A grab that is at work for the
    /// time of a key press takes nothing away.
    int focusLosses();
    int buttonPresses();
    void clearRecord();

private:
    void create();
    void readEvents();
    void record(const xcb_generic_event_t& event);
    bool isInClientList() const;
    bool isShownAtItsPlace() const;

    XConnection x;
    ProbeDescription description;
    xcb_window_t id = XCB_NONE;
    bool isManaged = false;
    std::vector<xcb_keycode_t> keys;
    int losses = 0;
    int buttons = 0;
};

} // namespace sablequill
