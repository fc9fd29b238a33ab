// SPDX-License-Identifier: MIT
#include "Ink.h"

#include "PlainButton.h"

#include <QWidget>

namespace sablequill {
namespace {

QColor translucent(QColor color, double opacity)
{
    color.setAlphaF(static_cast<float>(color.alphaF() * opacity));
    return color;
}

QColor white(double opacity)
{
    return translucent(Qt::white, opacity);
}

QColor black(double opacity)
{
    return translucent(Qt::black, opacity);
}

QColor roleColor(InkRole role, bool isDark)
{
    switch (role) {
    case InkRole::clear:
        return Qt::transparent;
    case InkRole::white:
        return Qt::white;
    case InkRole::black:
        return Qt::black;
    case InkRole::primary:
        return isDark ? white(0.85) : black(0.85);
    case InkRole::secondary:
        return isDark ? white(0.55) : black(0.50);
    case InkRole::tertiary:
        return isDark ? white(0.25) : black(0.26);
    case InkRole::divider:
        return isDark ? white(0.10) : black(0.10);
    case InkRole::green:
        return isDark ? QColor(0x32, 0xd7, 0x4b) : QColor(0x28, 0xcd, 0x41);
    case InkRole::accent:
        return isDark ? QColor(0x0a, 0x84, 0xff) : QColor(0x00, 0x7a, 0xff);
    case InkRole::red:
        return isDark ? QColor(0xff, 0x45, 0x3a) : QColor(0xff, 0x3b, 0x30);
    }
    return {};
}

} // namespace

QColor color(Ink ink, Surroundings surroundings)
{
    return translucent(roleColor(ink.role, surroundings == Surroundings::dark), ink.opacity);
}

QPalette paletteFor(Surroundings surroundings)
{
    const bool isDark = surroundings == Surroundings::dark;
    const auto ink = [&](InkRole role, double opacity = 1) {
        return color({role, opacity}, surroundings);
    };
    const QColor window = isDark ? QColor(0x1c, 0x1c, 0x1e) : QColor(0xf2, 0xf2, 0xf5);
    const QColor base = isDark ? QColor(0x2a, 0x2a, 0x2d) : QColor(Qt::white);
    // The selection under a text stays readable with the text's own color on it.
    const QColor selection = ink(InkRole::accent, isDark ? 0.55 : 0.30);

    QPalette palette(base, window);
    for (const QPalette::ColorRole role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(role, ink(InkRole::primary));
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::ToolTipText, ink(InkRole::primary));
    palette.setColor(QPalette::PlaceholderText, ink(InkRole::tertiary));
    palette.setColor(QPalette::Highlight, selection);
    palette.setColor(QPalette::HighlightedText, isDark ? Qt::white : Qt::black);
    palette.setColor(QPalette::Link, ink(InkRole::accent));
    palette.setColor(QPalette::LinkVisited, ink(InkRole::accent));
    for (const QPalette::ColorRole role :
        {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, ink(InkRole::tertiary));
    return palette;
}

Surroundings surroundingsOf(const QWidget& widget)
{
    const QColor window = widget.palette().color(QPalette::Window);
    return window.lightness() < 128 ? Surroundings::dark : Surroundings::light;
}

QColor foreground(const QWidget& widget, Ink ink)
{
    const Surroundings surroundings = surroundingsOf(widget);
    if (!widget.isEnabled())
        return color({ink.role, ink.opacity * 0.4}, surroundings);
    const PlainButton* button = PlainButton::around(widget);
    if (button && button->isDown())
        ink.opacity *= 0.6;
    else if (button && button->isHovered() && ink.role == InkRole::secondary)
        ink.role = InkRole::primary;
    return color(ink, surroundings);
}

} // namespace sablequill
