// SPDX-License-Identifier: MIT
#include "Readiness.h"

#include "Screenshot.h"
#include "Wait.h"

namespace sablequill {

namespace {

constexpr int trialSize = 40;

/// A window of no use in the screen's corner, of one color.
class TrialWindow {
public:
    TrialWindow(const XConnection& connection, const QColor& color, bool isManaged)
        : x(connection)
        , id(xcb_generate_id(connection.get()))
    {
        const uint32_t values[] = {color.rgb(), isManaged ? 0U : 1U};
        xcb_create_window(x.get(), XCB_COPY_FROM_PARENT, id, x.root(), 0, 0, trialSize, trialSize,
            0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
            XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    }
    TrialWindow(const TrialWindow&) = delete;
    TrialWindow& operator=(const TrialWindow&) = delete;
    ~TrialWindow()
    {
        xcb_destroy_window(x.get(), id);
        xcb_flush(x.get());
    }

    void makeHalfOpaque() const
    {
        const uint32_t half = 0x80000000U;
        xcb_change_property(x.get(), XCB_PROP_MODE_REPLACE, id, x.atom("_NET_WM_WINDOW_OPACITY"),
            XCB_ATOM_CARDINAL, 32, 1, &half);
    }
    void map() const
    {
        xcb_map_window(x.get(), id);
        x.sync();
    }
    /// ICCCM: a window manager marks each window that it has taken on.
    bool isTakenOn() const { return !x.property(id, "WM_STATE").empty(); }

private:
    const XConnection& x;
    const xcb_window_t id;
};

} // namespace

/// EWMH: the root names a window that names itself, once a window manager is at work.
bool isManagerAnnounced(const XConnection& x)
{
    const auto check = x.property(x.root(), "_NET_SUPPORTING_WM_CHECK");
    return check.size() == 1 && x.property(check[0], "_NET_SUPPORTING_WM_CHECK") == check;
}

bool waitUntilManaged(const XConnection& x)
{
    if (!waitUntil([&] { return isManagerAnnounced(x); }))
        return false;
    {
        // openbox says that it is there before it listens, and loses the first request.
        const TrialWindow trial(x, Qt::black, true);
        const bool isTakenOn = waitUntil([&] {
            trial.map();
            return trial.isTakenOn();
        }).has_value();
        if (!isTakenOn)
            return false;
    }
    return waitUntil([&] { return x.property(x.root(), "_NET_CLIENT_LIST").empty(); }).has_value();
}

bool waitUntilUnmanaged(const XConnection& x)
{
    return waitUntil([&] {
        const XOwned<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
            x.get(), xcb_get_window_attributes(x.get(), x.root()), nullptr));
        return attributes && !(attributes->all_event_masks & XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT);
    }).has_value();
}

bool waitUntilComposed(const XConnection& x)
{
    // picom owns the selection of compositors some time before it shows anything composed.
    const TrialWindow lower(x, Qt::black, false);
    const TrialWindow upper(x, Qt::white, false);
    upper.makeHalfOpaque();
    lower.map();
    upper.map();
    const Point middle{trialSize / 2, trialSize / 2};
    return waitUntil([&] {
        return isNear(colorAt(x, middle), QColor(128, 128, 128), 3);
    }).has_value();
}

} // namespace sablequill
