// SPDX-License-Identifier: MIT
#include "OverlayViewFixture.h"

#include "CrossFade.h"
#include "Ink.h"
#include "MirkDescription.h"
#include "RoundedRegion.h"

#include <QPointer>

namespace sablequill {
namespace {

class OverlayViewTest : public OverlayViewFixture { };

TEST_F(OverlayViewTest, appear_firstTime_ensuresThePanelAndLoadsTheNote)
{
    EXPECT_EQ(panels.panelCount, 1);
    EXPECT_EQ(view->editContent.text(), note(0).content);
    EXPECT_EQ(title(), u"Welcome"_s);
    EXPECT_EQ(counter(), u"1 / 1"_s);
    EXPECT_FALSE(isEditorShown());
    EXPECT_TRUE(read().contains(u"Welcome to Sablequill"_s));
}

TEST_F(OverlayViewTest, appear_again_makesNoOtherPanel)
{
    window.hide();
    open();
    EXPECT_EQ(panels.panelCount, 1);
}

TEST_F(OverlayViewTest, noNotes_everything_isEmptyAndTypingChangesTheBufferOnly)
{
    setNotes({});
    EXPECT_EQ(title(), u"Sablequill"_s);
    EXPECT_EQ(counter(), u"1 / 0"_s);
    EXPECT_EQ(read(), QString());
    edit();
    QTest::keyClicks(&editor(), u"lost"_s);
    EXPECT_EQ(view->editContent.text(), u"lost"_s);
    EXPECT_TRUE(notes.notes->empty());
}

TEST_F(OverlayViewTest, currentNoteIndex_anySelection_countsFromOne)
{
    setNotes({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s});
    EXPECT_EQ(counter(), u"1 / 5"_s);
    notes.selectedNoteID = note(1).id;
    turn();
    EXPECT_EQ(counter(), u"2 / 5"_s);
    notes.selectedNoteID = QUuid::createUuid();
    turn();
    EXPECT_EQ(counter(), u"1 / 5"_s);
    EXPECT_EQ(title(), u"Sablequill"_s);
    EXPECT_EQ(read(), QString());
    notes.selectedNoteID = std::nullopt;
    turn();
    EXPECT_EQ(view->currentNoteIndex(), 1);
    EXPECT_EQ(read(), u"a"_s);
    EXPECT_EQ(title(), note(0).title);
}

TEST_F(OverlayViewTest, selection_changedFromOutside_isFollowed)
{
    setNotes({u"first"_s, u"second"_s});
    notes.selectNext();
    EXPECT_EQ(view->editContent.text(), u"first"_s);
    turn();
    EXPECT_EQ(view->editContent.text(), u"second"_s);
    EXPECT_EQ(read(), u"second"_s);
    EXPECT_FALSE(view->findChild<CrossFade*>()->isFading());
}

TEST_F(OverlayViewTest, chevrons_clicked_selectAndFadeAtOnce)
{
    setNotes({u"first"_s, u"second"_s, u"third"_s});
    QTest::mouseClick(&child(u"nextButton"_s), Qt::LeftButton);
    EXPECT_EQ(view->editContent.text(), u"second"_s);
    EXPECT_TRUE(view->findChild<CrossFade*>()->isFading());
    click(u"previousButton"_s);
    click(u"previousButton"_s);
    EXPECT_EQ(read(), u"third"_s);
    EXPECT_EQ(counter(), u"3 / 3"_s);
}

TEST_F(OverlayViewTest, chevron_withOneNote_fadesNothing)
{
    setNotes({u"only"_s});
    click(u"nextButton"_s);
    EXPECT_FALSE(view->findChild<CrossFade*>()->isFading());
    EXPECT_EQ(read(), u"only"_s);
}

TEST_F(OverlayViewTest, hideButton_clicked_hidesTheOverlay)
{
    click(u"hideButton"_s);
    EXPECT_FALSE(overlay.isVisible);
    EXPECT_FALSE(view->findChild<CrossFade*>()->isFading());
}

TEST_F(OverlayViewTest, newButton_clicked_opensANewNoteInTheEditor)
{
    click(u"newButton"_s);
    EXPECT_EQ(notes.notes->size(), 2U);
    EXPECT_TRUE(isEditorShown());
    EXPECT_TRUE(overlay.isEditing);
    EXPECT_TRUE(editor().hasFocus());
    EXPECT_EQ(title(), u"New Note"_s);
    EXPECT_EQ(view->editContent.text(), u"# New Note\n\nStart typing..."_s);
    EXPECT_EQ(editor().toPlainText(), view->editContent.text());
    EXPECT_FALSE(view->findChild<CrossFade*>()->isFading());
}

TEST_F(OverlayViewTest, mirkMode_offAndOn_colorsTheEyeAndShowsTheBadge)
{
    change([](AppSettings& settings) { settings.mirkModeEnabled = false; });
    EXPECT_EQ(child<SymbolView>(u"mirkSymbol"_s).ink(), Ink{InkRole::secondary});
    EXPECT_FALSE(child(u"mirkBadge"_s).isVisible());
    change([](AppSettings& settings) { settings.mirkModeEnabled = true; });
    EXPECT_EQ(child<SymbolView>(u"mirkSymbol"_s).ink(), Ink{InkRole::green});
    EXPECT_TRUE(child(u"mirkBadge"_s).isVisible());
}

TEST_F(OverlayViewTest, mirkEffect_startAndChange_isSaidByTheBadgeAndTheEye)
{
    const auto expectSaid = [this](MirkEffect effect) {
        for (const QString& name : {u"mirkBadge"_s, u"mirkSymbol"_s}) {
            EXPECT_EQ(child(name).toolTip(), mirkDescription(effect));
            EXPECT_EQ(child(name).accessibleDescription(), mirkDescription(effect));
        }
    };
    expectSaid(MirkEffect::unknown);
    mirkProtection.effect = MirkEffect::hidden;
    turn();
    expectSaid(MirkEffect::hidden);
}

TEST_F(OverlayViewTest, fontSize_changed_isTakenInBothModes)
{
    setNotes({u"text"_s});
    change([](AppSettings& settings) { settings.fontSize = 28; });
    EXPECT_EQ(textView().document()->defaultFont().pixelSize(), 28);
    edit();
    EXPECT_EQ(editor().font().pixelSize(), 28);
    change([](AppSettings& settings) { settings.fontSize = 12; });
    EXPECT_EQ(editor().font().pixelSize(), 12);
    edit(false);
    EXPECT_EQ(textView().document()->defaultFont().pixelSize(), 12);
}

TEST_F(OverlayViewTest, refresh_announcementsOfOtherThings_buildNoNewDocument)
{
    setNotes({u"text"_s, u"other"_s});
    const QPointer<QTextDocument> before = textView().document();
    change([](AppSettings& settings) { settings.opacity = 0.5; });
    overlay.isVisible = false;
    notes.updateContent(note(1).id, u"changed"_s);
    turn();
    EXPECT_EQ(textView().document(), before.data());
}

TEST_F(OverlayViewTest, title_changedByTyping_followsInTheHeader)
{
    setNotes({u""_s});
    edit();
    QTest::keyClicks(&editor(), u"Plan"_s);
    turn();
    EXPECT_EQ(title(), u"Plan"_s);
}

TEST_F(OverlayViewTest, hover_overTheHeader_isAFaintWash)
{
    auto& header = child<OverlayHeader>(u"headerBar"_s);
    const QImage before = picture(window);
    QEnterEvent enter(QPointF(200, 5), QPointF(), QPointF());
    QCoreApplication::sendEvent(&header, &enter);
    EXPECT_TRUE(header.isHoveringHeader());
    const QImage hovered = picture(window);
    const QPoint place = header.mapTo(&window, QPoint(200, 4));
    // White at 0.85 * 0.03 over black at 0.72.
    EXPECT_NEAR(hovered.pixelColor(place).red(), 0.0255 / 0.727 * 255, 2);
    const QPoint corner = header.mapTo(&window, QPoint(1, 1));
    EXPECT_EQ(hovered.pixelColor(corner), before.pixelColor(corner));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&header, &leave);
    EXPECT_FALSE(header.isHoveringHeader());
    EXPECT_EQ(picture(window), before);
}

TEST_F(OverlayViewTest, setComposited_false_leavesNoMargins)
{
    EXPECT_EQ(view->shadowReach(), QMargins(38, 26, 38, 50));
    EXPECT_EQ(view->shape({0, 0, 420, 280}), roundedRegion({0, 0, 420, 280}, 14));
    view->setComposited(false);
    EXPECT_TRUE(view->shadowReach().isNull());
    resizeCard(420, 280);
    EXPECT_EQ(frameInCard(u"headerBar"_s), QRect(0, 0, 420, 44));
    EXPECT_EQ(picture(window).pixelColor(200, 150), QColor(0x1c, 0x1c, 0x1e));
}

TEST_F(OverlayViewTest, destruction_ofTheState_takesTheViewWithIt)
{
    auto state = std::make_unique<AppState>(
        platform, [](AppState& made) { return std::make_unique<OverlayView>(made); });
    state->bootstrap();
    auto* content = dynamic_cast<OverlayView*>(panels.panel->content.get());
    ASSERT_TRUE(content);
    const QPointer<OverlayView> watched = content;
    present(*content);
    state->overlayManager->isEditing = true;
    state.reset();
    EXPECT_TRUE(watched.isNull());
    turn();
}

} // namespace
} // namespace sablequill
