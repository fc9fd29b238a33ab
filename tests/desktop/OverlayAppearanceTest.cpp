// SPDX-License-Identifier: MIT
#include "OverlayTest.h"

#include <algorithm>

namespace sablequill {
namespace {

constexpr double cardAlpha = 0.72;

class OverlayAppearanceTest : public OverlayTest {
protected:
    void startWithOpacity(double opacity)
    {
        auto settings = settingsWith(savedCard);
        settings[u"opacity"] = opacity;
        user.writeSettings(settings);
        startProgram();
    }
    bool shows(Point point, const QColor& color, int tolerance = 2) const
    {
        return isNear(colorAt(x, point), color, tolerance);
    }
    /// The opacity of the default settings, as other clients are told.
    bool isFullyShown() const { return std::abs(overlay.opacity() - 0.92) < 0.005; }
    void expectShows(Point point, const QColor& color)
    {
        EXPECT_TRUE(waitUntil([&] { return shows(point, color); }))
            << point << ' ' << colorAt(x, point).name().toStdString() << " instead of "
            << color.name().toStdString();
    }
};

TEST_P(OverlayAppearanceTest, show_overKnownColors_isBlendedWithTheOpacity)
{
    const double opacity = 0.6;
    startWithOpacity(opacity);
    for (const QColor& under : {QColor(255, 255, 255), QColor(200, 40, 90), QColor(0, 0, 0)}) {
        probe.setColor(under);
        if (isComposited())
            expectShows(
                overlay.contentBackground(), blended(Qt::black, cardAlpha * opacity, under));
    }
    if (!isComposited()) {
        probe.setColor(Qt::white);
        const QColor over = colorAt(x, overlay.contentBackground());
        probe.setColor(Qt::black);
        EXPECT_TRUE(
            holdsFor([&] { return shows(overlay.contentBackground(), over, 0); }, watchTime))
            << "nothing shines through where nothing is blended";
        EXPECT_LT(over.lightness(), 90);
    }
}

TEST_P(OverlayAppearanceTest, show_corners_areRound)
{
    const QColor under(250, 120, 20);
    probe.setColor(under);
    ASSERT_TRUE(waitUntil([&] { return shows(savedCard.center(), under, 0); }));
    startProgram();
    const Area card = overlay.card();
    const int right = card.right() - 1;
    const int bottom = card.bottom() - 1;
    const QColor inside = overlay.steadyPicture().pixelColor(card.width / 2, card.height - 58);
    struct Corner {
        Point tip;
        Point inner;
    };
    for (const auto& [tip, inner] : {Corner{{card.x, card.y}, {card.x + 8, card.y + 8}},
             Corner{{right, card.y}, {right - 8, card.y + 8}},
             Corner{{card.x, bottom}, {card.x + 8, bottom - 8}},
             Corner{{right, bottom}, {right - 8, bottom - 8}}}) {
        SCOPED_TRACE(testing::Message() << tip);
        EXPECT_TRUE(waitUntil([&] { return shows(inner, inside, 6); }))
            << colorAt(x, inner).name().toStdString();
        if (isComposited()) // only the shadow darkens the tip
            EXPECT_TRUE(waitUntil([&] { return colorAt(x, tip).red() > inside.red() + 40; }))
                << colorAt(x, tip).name().toStdString() << " beside "
                << inside.name().toStdString();
        else
            EXPECT_TRUE(shows(tip, under, 0)) << colorAt(x, tip).name().toStdString();
    }
}

TEST_P(OverlayAppearanceTest, show_aroundTheCard_shadowWhereBlended)
{
    startProgram();
    const Area card = overlay.card();
    overlay.steadyPicture();
    const auto gray = [&](int px, int py) { return colorAt(x, {px, py}).red(); };
    const int middle = card.center().x;
    if (!isComposited()) {
        EXPECT_EQ(gray(middle, card.bottom() + 1), 255);
        return;
    }
    EXPECT_LT(gray(middle, card.bottom() + 4), 200);
    EXPECT_LT(gray(middle, card.bottom() + 4), gray(middle, card.bottom() + 24));
    EXPECT_LT(gray(middle, card.bottom() + 4), gray(middle, card.y - 4)) << "lies lower";
    EXPECT_EQ(gray(middle, card.bottom() + 90), 255);
    EXPECT_EQ(gray(card.right() + 90, card.center().y), 255);
}

TEST_P(OverlayAppearanceTest, toggle_shown_fadesOutInItsTime)
{
    startProgram();
    ASSERT_TRUE(waitUntil([&] { return isFullyShown(); }));
    overlay.steadyPicture();
    const uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(x.get(), *overlay.window(), XCB_CW_EVENT_MASK, &mask);
    const auto opacityAtom = x.atom("_NET_WM_WINDOW_OPACITY");
    std::vector<xcb_timestamp_t> changes;
    const auto collect = [&] {
        while (const auto event = x.nextEvent()) {
            const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
            if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY && change.atom == opacityAtom)
                changes.push_back(change.time);
        }
    };
    pressToggle();
    const auto elapsed = waitUntil([&] {
        collect();
        return !overlay.isShown();
    });
    collect();
    ASSERT_TRUE(elapsed);
    EXPECT_GE(elapsed->count(), 200);
    ASSERT_GE(changes.size(), 5U) << "steps of the fade";
    // A busy machine may take longer, never less.
    const auto fade = changes.back() - changes.front();
    EXPECT_GE(fade, 160U);
    EXPECT_LE(fade, 1000U);
    EXPECT_TRUE(waitUntil([&] { return isFullyShown(); })) << "restored for the next time";
}

TEST_P(OverlayAppearanceTest, toggle_afterHide_showsAtOnceAtItsOpacity)
{
    startProgram();
    pressToggle();
    ASSERT_TRUE(waitUntil([&] { return !overlay.isShown(); }));
    pressToggle();
    ASSERT_TRUE(waitUntil([&] { return overlay.isShown(); }));
    EXPECT_TRUE(holdsFor([&] { return isFullyShown(); }, watchTime));
}

TEST_P(OverlayAppearanceTest, toggle_hideThenShowWithinTheFade_endsOnScreen)
{
    startProgram();
    ASSERT_TRUE(waitUntil([&] { return isFullyShown(); }));
    pressToggle();
    // Where the fade is over before anyone looks, the window is gone.
    ASSERT_TRUE(waitUntil([&] { return overlay.opacity() < 0.8 || !overlay.isShown(); }));
    pressToggle();
    // A fade that ends before the second press is seen is opaque for a moment, then gone, then
    // back.
    const auto isOnScreen = [&] { return overlay.isShown() && isFullyShown(); };
    EXPECT_TRUE(waitUntil([&] { return holdsFor(isOnScreen, watchTime); }));
}

TEST_P(OverlayAppearanceTest, toggle_fadeOut_neverGrowsDarkerAgain)
{
    if (!isComposited())
        return; // nothing is blended
    startProgram();
    overlay.steadyPicture();
    const Point point = overlay.contentBackground();
    std::vector<int> grays;
    pressToggle();
    ASSERT_TRUE(waitUntil([&] {
        grays.push_back(colorAt(x, point).red());
        return grays.back() == 255;
    }));
    EXPECT_TRUE(std::is_sorted(grays.begin(), grays.end()));
    EXPECT_TRUE(holdsFor([&] { return colorAt(x, point).red() == 255; }, watchTime));
}

INSTANTIATE_FOR_ALL_SETUPS(OverlayAppearanceTest);

} // namespace
} // namespace sablequill
