// SPDX-License-Identifier: MIT
#include "Windows.h"

#include <xcb/shape.h>

#include <algorithm>

namespace sablequill {

namespace {

struct TreeNode {
    xcb_window_t parent = XCB_NONE;
    std::vector<xcb_window_t> children;
};

std::optional<TreeNode> queryTree(const XConnection& x, xcb_window_t window)
{
    const XOwned<xcb_query_tree_reply_t> reply(
        xcb_query_tree_reply(x.get(), xcb_query_tree(x.get(), window), nullptr));
    if (!reply)
        return std::nullopt;
    const auto* children = xcb_query_tree_children(reply.get());
    return TreeNode{
        reply->parent, {children, children + xcb_query_tree_children_length(reply.get())}};
}

/// WM_CLASS is two strings, each ended by a null character.
std::string classNameOf(const XConnection& x, xcb_window_t window)
{
    const auto text = x.textProperty(window, "WM_CLASS");
    const auto first = text.find('\0');
    if (first == std::string::npos)
        return {};
    return text.substr(first + 1, text.find('\0', first + 1) - first - 1);
}

bool matches(const XConnection& x, xcb_window_t window, const WindowIdentity& identity)
{
    return (identity.className.empty() || classNameOf(x, window) == identity.className)
        && (identity.role.empty() || x.textProperty(window, "WM_WINDOW_ROLE") == identity.role);
}

std::optional<xcb_window_t> findBelow(
    const XConnection& x, xcb_window_t window, const WindowIdentity& identity)
{
    const auto node = queryTree(x, window);
    for (const auto child : node ? node->children : std::vector<xcb_window_t>{}) {
        if (matches(x, child, identity))
            return child;
        if (const auto found = findBelow(x, child, identity))
            return found;
    }
    return std::nullopt;
}

void collectBelow(const XConnection& x, xcb_window_t window, const WindowIdentity& identity,
    std::vector<xcb_window_t>& found)
{
    const auto node = queryTree(x, window);
    for (const auto child : node ? node->children : std::vector<xcb_window_t>{}) {
        if (matches(x, child, identity))
            found.push_back(child);
        collectBelow(x, child, identity, found);
    }
}

Area unionOf(const xcb_rectangle_t* first, int count)
{
    int left = first->x, top = first->y, right = left + first->width, bottom = top + first->height;
    for (const auto* rectangle = first; rectangle < first + count; ++rectangle) {
        left = std::min<int>(left, rectangle->x);
        top = std::min<int>(top, rectangle->y);
        right = std::max<int>(right, rectangle->x + rectangle->width);
        bottom = std::max<int>(bottom, rectangle->y + rectangle->height);
    }
    return {left, top, right - left, bottom - top};
}

} // namespace

std::optional<xcb_window_t> findWindow(const XConnection& x, const WindowIdentity& identity)
{
    return findBelow(x, x.root(), identity);
}

std::vector<xcb_window_t> findWindows(const XConnection& x, const WindowIdentity& identity)
{
    std::vector<xcb_window_t> found;
    collectBelow(x, x.root(), identity, found);
    return found;
}

std::vector<xcb_window_t> stackingOrder(const XConnection& x)
{
    return queryTree(x, x.root()).value_or(TreeNode{}).children;
}

std::optional<xcb_window_t> topLevelOf(const XConnection& x, xcb_window_t window)
{
    auto node = queryTree(x, window);
    while (node && node->parent != x.root() && node->parent != XCB_NONE) {
        window = node->parent;
        node = queryTree(x, window);
    }
    return node && node->parent == x.root() ? std::optional(window) : std::nullopt;
}

bool isAbove(const XConnection& x, xcb_window_t upper, xcb_window_t lower)
{
    const auto order = stackingOrder(x);
    const auto upperTop = topLevelOf(x, upper);
    const auto lowerTop = topLevelOf(x, lower);
    const auto last = order.end();
    const auto upperAt = upperTop ? std::find(order.begin(), last, *upperTop) : last;
    const auto lowerAt = lowerTop ? std::find(order.begin(), last, *lowerTop) : last;
    return upperAt != last && lowerAt != last && upperAt > lowerAt;
}

bool isViewable(const XConnection& x, xcb_window_t window)
{
    const XOwned<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(
        x.get(), xcb_get_window_attributes(x.get(), window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

std::optional<Area> areaOf(const XConnection& x, xcb_window_t window)
{
    const XOwned<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(x.get(), xcb_get_geometry(x.get(), window), nullptr));
    const XOwned<xcb_translate_coordinates_reply_t> origin(xcb_translate_coordinates_reply(
        x.get(), xcb_translate_coordinates(x.get(), window, x.root(), 0, 0), nullptr));
    if (!size || !origin)
        return std::nullopt;
    return Area{origin->dst_x, origin->dst_y, size->width, size->height};
}

std::optional<Area> inputAreaOf(const XConnection& x, xcb_window_t window)
{
    const auto area = areaOf(x, window);
    const XOwned<xcb_shape_get_rectangles_reply_t> reply(xcb_shape_get_rectangles_reply(
        x.get(), xcb_shape_get_rectangles(x.get(), window, XCB_SHAPE_SK_INPUT), nullptr));
    if (!area || !reply || xcb_shape_get_rectangles_rectangles_length(reply.get()) == 0)
        return std::nullopt;
    auto extent = unionOf(xcb_shape_get_rectangles_rectangles(reply.get()),
        xcb_shape_get_rectangles_rectangles_length(reply.get()));
    extent.x += area->x;
    extent.y += area->y;
    return extent;
}

xcb_window_t focusedWindow(const XConnection& x)
{
    const XOwned<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(x.get(), xcb_get_input_focus(x.get()), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_NONE};
}

bool hasKeyboard(const XConnection& x, xcb_window_t window)
{
    auto focused = focusedWindow(x);
    while (focused > XCB_INPUT_FOCUS_POINTER_ROOT && focused != window) {
        const auto node = queryTree(x, focused);
        focused = node ? node->parent : xcb_window_t{XCB_NONE};
    }
    return focused == window;
}

} // namespace sablequill
