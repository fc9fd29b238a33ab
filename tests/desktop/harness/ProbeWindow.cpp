// SPDX-License-Identifier: MIT
#include "ProbeWindow.h"

#include "Readiness.h"
#include "Wait.h"
#include "Windows.h"

#include <algorithm>
#include <stdexcept>

namespace sablequill {

namespace {

constexpr uint32_t recordedEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_BUTTON_PRESS
    | XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

void setAtom(const XConnection& x, xcb_window_t window, const char* name, const char* value)
{
    const auto atom = x.atom(value);
    xcb_change_property(
        x.get(), XCB_PROP_MODE_REPLACE, window, x.atom(name), XCB_ATOM_ATOM, 32, 1, &atom);
}

void setText(const XConnection& x, xcb_window_t window, xcb_atom_t name, const std::string& text)
{
    xcb_change_property(x.get(), XCB_PROP_MODE_REPLACE, window, name, XCB_ATOM_STRING, 8,
        static_cast<uint32_t>(text.size()), text.data());
}

/// ICCCM WM_HINTS with the input flag alone: the window manager may give it the focus.
void acceptInput(const XConnection& x, xcb_window_t window)
{
    const uint32_t hints[9] = {1, 1};
    xcb_change_property(
        x.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32, 9, hints);
}

/// ICCCM WM_NORMAL_HINTS with the user's position alone: a stacking window manager leaves it there.
void insistOnPlace(const XConnection& x, xcb_window_t window)
{
    const uint32_t hints[18] = {1};
    xcb_change_property(x.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
        XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
}

} // namespace

ProbeWindow::ProbeWindow(const std::string& displayName, ProbeDescription probeDescription)
    : x(displayName)
    , description(std::move(probeDescription))
    , isManaged(isManagerAnnounced(x))
{
    if (description.isFullScreen)
        description.area = x.screenArea();
    create();
}

ProbeWindow::~ProbeWindow()
{
    xcb_ungrab_key(x.get(), XCB_GRAB_ANY, x.root(), XCB_MOD_MASK_ANY);
    xcb_destroy_window(x.get(), id);
    // Else the next client gets the number of this one and its window the same name; what a window
    // manager still does about this window would then hit that one (i3 takes its state away).
    xcb_set_close_down_mode(x.get(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    xcb_flush(x.get());
    if (xcb_connection_has_error(x.get()) != 0)
        return;
    // A window manager that has not let go of it yet may treat the next window in its light.
    waitUntil([this] { return !isManagerAnnounced(x) || !isInClientList(); });
}

bool ProbeWindow::isInClientList() const
{
    const auto clients = x.property(x.root(), "_NET_CLIENT_LIST");
    return std::find(clients.begin(), clients.end(), id) != clients.end();
}

void ProbeWindow::create()
{
    const auto& area = description.area;
    const uint32_t values[] = {description.color.rgb(), recordedEvents};
    id = xcb_generate_id(x.get());
    xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, id, x.root(), static_cast<int16_t>(area.x),
        static_cast<int16_t>(area.y), static_cast<uint16_t>(area.width),
        static_cast<uint16_t>(area.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
        XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values);
    setText(x, id, XCB_ATOM_WM_CLASS, std::string("probe\0Probe", 12));
    setText(x, id, XCB_ATOM_WM_NAME, "Probe");
    acceptInput(x, id);
    if (description.isFullScreen)
        setAtom(x, id, "_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN");
    else
        insistOnPlace(x, id);
    x.sync();
}

void ProbeWindow::show()
{
    open();
    if (!waitUntil([this] { return isShownAtItsPlace(); }))
        throw std::runtime_error("the probe did not come on the screen");
    if (!isManaged)
        activate();
    if (!waitUntil([this] { return hasFocus(); }))
        throw std::runtime_error("the probe did not get the keyboard");
    clearRecord();
}

void ProbeWindow::open()
{
    xcb_map_window(x.get(), id);
    if (!waitUntil([this] { return isViewable(x, id) || isInClientList(); }))
        throw std::runtime_error("the probe was not taken on");
}

void ProbeWindow::hide()
{
    xcb_unmap_window(x.get(), id);
    x.sync();
}

void ProbeWindow::raise()
{
    const uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(x.get(), id, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    x.sync();
}

void ProbeWindow::activate()
{
    constexpr uint32_t fromTaskBar = 2;
    if (isManaged)
        x.sendToRoot(id, "_NET_ACTIVE_WINDOW", {fromTaskBar, XCB_CURRENT_TIME, XCB_NONE});
    else
        xcb_set_input_focus(x.get(), XCB_INPUT_FOCUS_PARENT, id, XCB_CURRENT_TIME);
    x.sync();
}

void ProbeWindow::setColor(const QColor& color)
{
    description.color = color;
    const uint32_t pixel = color.rgb();
    xcb_change_window_attributes(x.get(), id, XCB_CW_BACK_PIXEL, &pixel);
    xcb_clear_area(x.get(), 0, id, 0, 0, 0, 0);
    x.sync();
}

bool ProbeWindow::grabKey(xcb_keycode_t code, uint16_t modifiers)
{
    const auto cookie = xcb_grab_key_checked(
        x.get(), 0, x.root(), modifiers, code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const XOwned<xcb_generic_error_t> error(xcb_request_check(x.get(), cookie));
    return !error;
}

bool ProbeWindow::hasFocus() const
{
    return hasKeyboard(x, id);
}

bool ProbeWindow::isShownAtItsPlace() const
{
    return isViewable(x, id) && (!description.isFullScreen || areaOf(x, id) == description.area);
}

const std::vector<xcb_keycode_t>& ProbeWindow::pressedKeys()
{
    readEvents();
    return keys;
}

bool ProbeWindow::receivedKey(xcb_keycode_t code)
{
    const auto& received = pressedKeys();
    return std::find(received.begin(), received.end(), code) != received.end();
}

int ProbeWindow::focusLosses()
{
    readEvents();
    return losses;
}

int ProbeWindow::buttonPresses()
{
    readEvents();
    return buttons;
}

void ProbeWindow::clearRecord()
{
    x.sync();
    readEvents();
    keys.clear();
    losses = 0;
    buttons = 0;
}

void ProbeWindow::readEvents()
{
    while (const auto event = x.nextEvent())
        record(*event);
}

void ProbeWindow::record(const xcb_generic_event_t& event)
{
    constexpr int sentFlag = 0x80;
    switch (event.response_type & ~sentFlag) {
    case XCB_KEY_PRESS:
        keys.push_back(reinterpret_cast<const xcb_key_press_event_t&>(event).detail);
        break;
    case XCB_BUTTON_PRESS:
        ++buttons;
        break;
    case XCB_FOCUS_OUT: {
        const auto mode = reinterpret_cast<const xcb_focus_out_event_t&>(event).mode;
        if (mode != XCB_NOTIFY_MODE_GRAB && mode != XCB_NOTIFY_MODE_UNGRAB)
            ++losses;
        break;
    }
    default:
        break;
    }
}

} // namespace sablequill
