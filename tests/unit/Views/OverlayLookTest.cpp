// SPDX-License-Identifier: MIT
#include "OverlayViewFixture.h"

#include <QAbstractEventDispatcher>
#include <QAccessible>
#include <QApplication>

namespace sablequill {
namespace {

class OverlayLookTest : public OverlayViewFixture {
protected:
    /// The color at a place of the card.
    QColor at(QPoint place)
    {
        const QMargins reach = view->shadowReach();
        return picture(window).pixelColor(place + QPoint(reach.left(), reach.top()));
    }

    /// What a fill of white or another opaque color at an opacity makes of the card's black at
    /// 0.72.
    static QColor over(const QColor& color, double opacity)
    {
        const double alpha = opacity + 0.72 * (1 - opacity);
        const auto channel = [&](double value) {
            return static_cast<float>(value * opacity / alpha);
        };
        return QColor::fromRgbF(channel(color.redF()), channel(color.greenF()),
            channel(color.blueF()), static_cast<float>(alpha));
    }

    static void expectNear(const QColor& actual, const QColor& expected)
    {
        EXPECT_NEAR(actual.red(), expected.red(), 2);
        EXPECT_NEAR(actual.green(), expected.green(), 2);
        EXPECT_NEAR(actual.blue(), expected.blue(), 2);
        EXPECT_NEAR(actual.alpha(), expected.alpha(), 2);
    }
};

TEST_F(OverlayLookTest, bars_inTheCard_standBelowEachOther)
{
    EXPECT_EQ(frameInCard(u"headerBar"_s), QRect(0, 0, 420, 44));
    EXPECT_EQ(frameInCard(u"contentArea"_s), QRect(0, 45, 420, 280 - 45 - 39));
    EXPECT_EQ(frameInCard(u"footerBar"_s), QRect(0, 242, 420, 38));
    for (const int y : {44, 241})
        expectNear(at(QPoint(200, y)), over(Qt::white, 0.03));
}

TEST_F(OverlayLookTest, header_children_standTenPointsApart)
{
    EXPECT_EQ(frameInCard(u"mirkSymbol"_s), QRect(14, 15, 14, 14));
    EXPECT_EQ(frameInCard(u"noteTitle"_s).left(), 38);
    EXPECT_EQ(frameInCard(u"hideButton"_s), QRect(382, 10, 24, 24));
    EXPECT_EQ(frameInCard(u"editButton"_s), QRect(348, 10, 24, 24));
    EXPECT_EQ(frameInCard(u"mirkBadge"_s).right(), 337);
    const auto& title = child<TextLabel>(u"noteTitle"_s);
    EXPECT_EQ(title.style(), (TextStyle{12, QFont::DemiBold}));
    EXPECT_EQ(title.ink(), Ink{InkRole::primary});
    const auto& eye = child<SymbolView>(u"mirkSymbol"_s).symbol();
    EXPECT_EQ(eye, (Symbol{u"eye.slash.fill"_s, 11, QFont::DemiBold}));
}

TEST_F(OverlayLookTest, header_controls_areCirclesWithSemiboldSymbols)
{
    expectNear(at(QPoint(394, 13)), over(Qt::white, 0.85 * 0.06));
    expectNear(at(QPoint(383, 11)), over(Qt::white, 0));
    for (const QString& name : {u"editButton"_s, u"hideButton"_s}) {
        const auto& symbol = *child(name).findChild<SymbolView*>();
        EXPECT_EQ(symbol.symbol().size, 11);
        EXPECT_EQ(symbol.symbol().weight, QFont::DemiBold);
        EXPECT_EQ(symbol.ink(), Ink{InkRole::secondary});
    }
}

TEST_F(OverlayLookTest, badge_mirkModeOn_isAGreenCapsule)
{
    const QRect badge = frameInCard(u"mirkBadge"_s);
    auto& text = *child(u"mirkBadge"_s).findChild<TextLabel*>();
    EXPECT_EQ(text.text(), u"Mirk"_s);
    EXPECT_EQ(text.style(), (TextStyle{10, QFont::Medium}));
    EXPECT_EQ(text.ink(), Ink{InkRole::green});
    EXPECT_EQ(badge.size(), text.sizeHint() + QSize(14, 6));
    expectNear(
        at(QPoint(badge.center().x(), badge.top() + 1)), over(QColor(0x32, 0xd7, 0x4b), 0.15));
    expectNear(at(badge.topLeft()), over(Qt::white, 0));
}

TEST_F(OverlayLookTest, footer_children_standEightPointsApart)
{
    setNotes({u"a"_s, u"b"_s});
    EXPECT_EQ(frameInCard(u"previousButton"_s), QRect(14, 250, 22, 22));
    const QRect counter = frameInCard(u"noteCounter"_s);
    EXPECT_EQ(counter.left(), 44);
    EXPECT_EQ(frameInCard(u"nextButton"_s), QRect(counter.right() + 9, 250, 22, 22));
    const auto& text = child<TextLabel>(u"noteCounter"_s);
    EXPECT_EQ(text.style(), (TextStyle{11, QFont::Medium}));
    EXPECT_EQ(text.ink(), Ink{InkRole::secondary});
    expectNear(at(QPoint(25, 251)), over(Qt::white, 0.85 * 0.05));
    expectNear(at(QPoint(14, 250)), over(Qt::white, 0));
    for (const QString& name : {u"previousButton"_s, u"nextButton"_s}) {
        const auto& symbol = *child(name).findChild<SymbolView*>();
        EXPECT_EQ(symbol.symbol().size, 10);
        EXPECT_EQ(symbol.symbol().weight, QFont::Bold);
        EXPECT_EQ(symbol.ink(), Ink{InkRole::secondary});
    }
}

TEST_F(OverlayLookTest, newButton_label_endsFourteenPointsFromTheEdge)
{
    auto& button = child(u"newButton"_s);
    const auto& title = *button.findChild<TextLabel*>();
    const auto& plus = *button.findChild<SymbolView*>();
    EXPECT_EQ(title.text(), u"New"_s);
    EXPECT_EQ(title.style(), (TextStyle{11, QFont::Medium}));
    EXPECT_EQ(plus.symbol(), (Symbol{u"plus"_s, 11, QFont::Medium}));
    EXPECT_EQ(title.ink(), Ink{InkRole::secondary});
    EXPECT_EQ(frameIn(*view, title).right() + 1, 38 + 420 - 14);
    EXPECT_LT(frameIn(*view, plus).right(), frameIn(*view, title).left());
}

TEST_F(OverlayLookTest, counter_manyNotes_movesNothingBesideIt)
{
    QStringList contents;
    for (int i = 0; i < 12; ++i)
        contents << QString::number(i);
    setNotes(contents);
    turn(); // for the layout
    const QRect next = frameInCard(u"nextButton"_s);
    for (int i = 0; i < 12; ++i) {
        notes.selectNext();
        turn();
        EXPECT_EQ(frameInCard(u"nextButton"_s), next) << counter().toStdString();
    }
}

TEST_F(OverlayLookTest, text_inBothModes_hasItsPadding)
{
    setNotes({u"text"_s});
    EXPECT_EQ(textView().geometry().size(), child(u"contentArea"_s).size());
    EXPECT_EQ(textView().cursorRect().topLeft(), QPoint(14, 14));
    edit();
    EXPECT_EQ(editor().viewport()->geometry(),
        QRect(QPoint(12, 12), child(u"contentArea"_s).size() - QSize(24, 24)));
}

TEST_F(OverlayLookTest, title_veryLong_leavesTheControlsInPlace)
{
    setNotes({u"a"_s});
    notes.updateContent(note(0).id, u"# "_s + QString(500, u'w'));
    resizeCard(280, 160);
    EXPECT_EQ(frameInCard(u"hideButton"_s), QRect(242, 10, 24, 24));
    EXPECT_EQ(frameInCard(u"editButton"_s), QRect(208, 10, 24, 24));
    EXPECT_LE(
        frameInCard(u"noteTitle"_s).right() + 1 + 10 + 8 + 10, frameInCard(u"mirkBadge"_s).left());
}

TEST_F(OverlayLookTest, card_belowTheMinimum_isFilledAllTheSame)
{
    resizeCard(100, 50);
    EXPECT_EQ(view->size(), QSize(176, 126));
    EXPECT_EQ(at(QPoint(50, 48)).alpha() > 180, true);
}

TEST_F(OverlayLookTest, press_onTheGround_reachesTheWindow)
{
    setNotes({u"short"_s});
    const QPoint reach(38, 26);
    for (const QPoint place : {QPoint(60, 20), QPoint(20, 20), QPoint(300, 5), QPoint(200, 260),
             QPoint(60, 260), QPoint(200, 200), QPoint(5, 100)}) {
        SCOPED_TRACE(place.x());
        window.presses = 0;
        QWidget* target = window.childAt(place + reach);
        QTest::mouseClick(target, Qt::LeftButton, {}, target->mapFrom(&window, place + reach));
        EXPECT_EQ(window.presses, 1);
    }
}

TEST_F(OverlayLookTest, tab_fromTheFirstControl_visitsAllInReadingOrder)
{
    setNotes({u"text"_s});
    child(u"editButton"_s).setFocus(Qt::TabFocusReason);
    QStringList visited;
    for (int i = 0; i < 6; ++i) {
        visited << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited,
        QStringList({u"editButton"_s, u"hideButton"_s, u"noteTextView"_s, u"previousButton"_s,
            u"nextButton"_s, u"newButton"_s}));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), u"editButton"_s);
}

TEST_F(OverlayLookTest, keys_onEachControl_work)
{
    setNotes({u"first"_s, u"second"_s});
    const auto press = [&](const QString& name, Qt::Key key) {
        child(name).setFocus(Qt::TabFocusReason);
        QTest::keyClick(&child(name), key);
        turn();
    };
    press(u"nextButton"_s, Qt::Key_Space);
    EXPECT_EQ(counter(), u"2 / 2"_s);
    press(u"previousButton"_s, Qt::Key_Return);
    EXPECT_EQ(counter(), u"1 / 2"_s);
    press(u"editButton"_s, Qt::Key_Space);
    EXPECT_TRUE(overlay.isEditing);
    press(u"newButton"_s, Qt::Key_Space);
    EXPECT_EQ(notes.notes->size(), 3U);
    press(u"hideButton"_s, Qt::Key_Return);
    EXPECT_FALSE(overlay.isVisible);
}

TEST_F(OverlayLookTest, accessibility_everyControl_hasAName)
{
    edit();
    for (const QString& name : {u"mirkSymbol"_s, u"noteTitle"_s, u"mirkBadge"_s, u"editButton"_s,
             u"hideButton"_s, u"noteTextView"_s, u"noteEditor"_s, u"previousButton"_s,
             u"noteCounter"_s, u"nextButton"_s, u"newButton"_s}) {
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&child(name));
        ASSERT_TRUE(spoken) << name.toStdString();
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << name.toStdString();
    }
    for (const QString& name :
        {u"editButton"_s, u"hideButton"_s, u"previousButton"_s, u"nextButton"_s})
        EXPECT_FALSE(child(name).toolTip().isEmpty()) << name.toStdString();
}

TEST_F(OverlayLookTest, idle_readingOrEditing_keepsNoTimer)
{
    setNotes({u"text [link](https://example.org)\n"_s.repeated(50)});
    const auto timers = [&] {
        int count = 0;
        for (QObject* object : view->findChildren<QObject*>())
            count += static_cast<int>(
                QAbstractEventDispatcher::instance()->registeredTimers(object).size());
        return count;
    };
    textView().setFocus();
    turn();
    EXPECT_EQ(timers(), 0);
    edit();
    ASSERT_TRUE(editor().hasFocus());
    EXPECT_EQ(timers(), 0);
}

} // namespace
} // namespace sablequill
