// SPDX-License-Identifier: MIT
#include "Popover.h"

#include "Wait.h"

#include <stdexcept>

namespace sablequill {

namespace {

constexpr int actionRows = 4;
/// Above and below the action rows.
constexpr int actionsPadding = 6;
constexpr int actionSpacing = 2;
constexpr int noteSpacing = 4;
constexpr int notesBottomPadding = 8;
/// An action has so much more padding than a note, above and below together.
constexpr int noteIsLower = 2;
/// The card's rounded corners, and no text reaches so far.
constexpr int edge = 4;

bool isOneColor(const QImage& picture, int y)
{
    const QRgb color = picture.pixel(edge, y);
    for (int x = edge; x < picture.width() - edge; ++x) {
        if (picture.pixel(x, y) != color)
            return false;
    }
    return true;
}

/// One line of another color between two of the ground's.
bool isDivider(const QImage& picture, int y)
{
    const QRgb above = picture.pixel(edge, y - 1);
    return picture.pixel(edge, y) != above && picture.pixel(edge, y + 1) == above
        && isOneColor(picture, y) && isOneColor(picture, y - 1) && isOneColor(picture, y + 1);
}

std::vector<int> dividersIn(const QImage& picture)
{
    std::vector<int> found;
    for (int y = 2 * edge; y < picture.height() - 2 * edge; ++y) {
        if (isDivider(picture, y))
            found.push_back(y);
    }
    return found;
}

/// Of one of several rows that fill a section's height.
int rowHeight(const Area& actions)
{
    const int spaces = 2 * actionsPadding + (actionRows - 1) * actionSpacing;
    return (actions.height - spaces) / actionRows;
}

} // namespace

Popover::Popover(const XConnection& connection)
    : PanelOnScreen(connection, "popover")
{
}

QImage Popover::steadyPicture() const
{
    layout();
    return captureSteadily(x, [this] { return card(); });
}

Popover::Layout Popover::layout() const
{
    constexpr std::size_t dividers = 3;
    Layout found;
    const bool isThere = waitUntil([&] {
        found.card = isShown() ? card() : Area{};
        if (found.card.height > 0)
            found.dividers = dividersIn(captureScreen(x, found.card));
        return found.dividers.size() == dividers && card() == found.card;
    }).has_value();
    if (!isThere)
        throw std::runtime_error("the popover is not on the screen");
    return found;
}

Area Popover::section(int index) const
{
    const auto found = layout();
    std::vector<int> edges{-1};
    edges.insert(edges.end(), found.dividers.begin(), found.dividers.end());
    edges.push_back(found.card.height);
    const auto above = edges.at(static_cast<std::size_t>(index));
    const auto below = edges.at(static_cast<std::size_t>(index) + 1);
    return {found.card.x, found.card.y + above + 1, found.card.width, below - above - 1};
}

Area Popover::header() const
{
    return section(0);
}

Area Popover::notesSection() const
{
    return section(1);
}

Point Popover::note(int index, int count) const
{
    const int height = rowHeight(section(2)) - noteIsLower;
    const auto notes = notesSection();
    const int below = (count - 1 - index) * (height + noteSpacing);
    return {notes.center().x, notes.bottom() - notesBottomPadding - below - height / 2};
}

Point Popover::action(PopoverAction action) const
{
    if (action == PopoverAction::quit)
        return section(3).center();
    const auto actions = section(2);
    const int row = static_cast<int>(action);
    const int height = rowHeight(actions);
    const int top = actions.y + actionsPadding + row * (height + actionSpacing);
    return {actions.center().x, top + height / 2};
}

} // namespace sablequill
