// SPDX-License-Identifier: MIT
#include "Ink.h"

#include "Widgets.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace sablequill {
namespace {

struct RoleRow {
    InkRole role;
    const char* dark;
    const char* light;
};

TEST(Ink, color_everyRole_isTheOneOfItsSurroundings)
{
    // Opacities as alpha out of 255: 0.85 is d9, 0.55 is 8c, 0.50 is 80, 0.26 is 42, 0.25 is 40,
    // 0.10 is 1a.
    for (const RoleRow& row : std::initializer_list<RoleRow>{
             {InkRole::clear, "#00000000", "#00000000"},
             {InkRole::white, "#ffffffff", "#ffffffff"},
             {InkRole::black, "#ff000000", "#ff000000"},
             {InkRole::primary, "#d9ffffff", "#d9000000"},
             {InkRole::secondary, "#8cffffff", "#80000000"},
             {InkRole::tertiary, "#40ffffff", "#42000000"},
             {InkRole::divider, "#1affffff", "#1a000000"},
             {InkRole::green, "#ff32d74b", "#ff28cd41"},
             {InkRole::accent, "#ff0a84ff", "#ff007aff"},
             {InkRole::red, "#ffff453a", "#ffff3b30"},
         }) {
        SCOPED_TRACE(static_cast<int>(row.role));
        EXPECT_EQ(color({row.role}, Surroundings::dark).name(QColor::HexArgb),
            QString::fromLatin1(row.dark));
        EXPECT_EQ(color({row.role}, Surroundings::light).name(QColor::HexArgb),
            QString::fromLatin1(row.light));
    }
}

TEST(Ink, color_withOpacity_multipliesTheRolesOwn)
{
    EXPECT_NEAR(color({InkRole::primary, 0.06}, Surroundings::dark).alphaF(), 0.85 * 0.06, 0.001);
    EXPECT_NEAR(color({InkRole::green, 0.15}, Surroundings::dark).alphaF(), 0.15, 0.001);
    EXPECT_NEAR(color({InkRole::divider, 0.3}, Surroundings::dark).alphaF(), 0.03, 0.001);
}

TEST(Ink, surroundingsOf_childOfAWindow_isTheWindows)
{
    QWidget window;
    QWidget child(&window);
    for (const Surroundings surroundings : {Surroundings::dark, Surroundings::light}) {
        window.setPalette(paletteFor(surroundings));
        EXPECT_EQ(surroundingsOf(child), surroundings);
    }
}

TEST(Ink, foreground_disabledWidget_isFaint)
{
    QWidget window;
    window.setPalette(paletteFor(Surroundings::dark));
    window.setEnabled(false);
    EXPECT_NEAR(foreground(window, {InkRole::primary}).alphaF(), 0.85 * 0.4, 0.005);
}

} // namespace
} // namespace sablequill
