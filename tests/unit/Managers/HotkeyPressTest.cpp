// SPDX-License-Identifier: MIT
#include "HotkeyManagerFixture.h"

namespace sablequill {
namespace {

/// What a press does.
using HotkeyPressTest = HotkeyManagerFixture;

constexpr FakeHotKeyCenter::Combination shiftCommandG{5, 768};
constexpr FakeHotKeyCenter::Combination shiftCommandO{31, 768};
constexpr FakeHotKeyCenter::Combination shiftCommandDown{125, 768};
constexpr FakeHotKeyCenter::Combination shiftCommandUp{126, 768};

TEST_F(HotkeyPressTest, press_toggle_handledAtOnceAndDoneInTheNextTurn)
{
    registerStored();

    EXPECT_EQ(hotKeys.press(shiftCommandG), 0);

    EXPECT_EQ(journal.take(), Lines{"mainQueue.async()"});
    EXPECT_TRUE(overlay->isVisible);
    clock.advance(0);
    EXPECT_FALSE(overlay->isVisible);
}

TEST_F(HotkeyPressTest, press_quickOpen_opensForEditing)
{
    registerStored();

    EXPECT_EQ(hotKeys.press(shiftCommandO), 0);
    clock.advance(0);

    EXPECT_TRUE(overlay->isEditing);
    EXPECT_EQ(journal.take(),
        (Lines{"mainQueue.async()", "application.activateIgnoringOtherApps(true)"}));
}

TEST_F(HotkeyPressTest, press_nextAndPrevious_moveTheSelection)
{
    registerStored();
    const auto& list = notes->notes.get();
    ASSERT_EQ(notes->selectedNoteID.get(), list[0].id);

    EXPECT_EQ(hotKeys.press(shiftCommandDown), 0);
    clock.advance(0);
    EXPECT_EQ(notes->selectedNoteID.get(), list[1].id);

    EXPECT_EQ(hotKeys.press(shiftCommandUp), 0);
    EXPECT_EQ(hotKeys.press(shiftCommandUp), 0);
    clock.advance(0);
    EXPECT_EQ(notes->selectedNoteID.get(), list[2].id);
}

TEST_F(HotkeyPressTest, press_registeredTwice_eachPressActsOnce)
{
    registerStored();
    manager->registerHotkeys();
    const auto& list = notes->notes.get();

    hotKeys.press(shiftCommandDown);
    hotKeys.press(shiftCommandG);
    hotKeys.press(shiftCommandO);
    clock.advance(0);

    EXPECT_EQ(notes->selectedNoteID.get(), list[1].id);
    EXPECT_TRUE(overlay->isVisible);
    EXPECT_TRUE(overlay->isEditing);
}

TEST_F(HotkeyPressTest, press_updatedShortcut_newKeyActsAndOldOneDoesNot)
{
    registerStored();
    manager->updateShortcut(
        HotkeyAction::nextNote, {45, KeyboardShortcutBinding::ModifierFlags::option});
    const auto& list = notes->notes.get();

    EXPECT_EQ(hotKeys.press(shiftCommandDown), -9874);
    EXPECT_EQ(hotKeys.press({45, 2048}), 0);
    clock.advance(0);

    EXPECT_EQ(notes->selectedNoteID.get(), list[1].id);
}

TEST_F(HotkeyPressTest, event_idOfNoAction_isNotHandled)
{
    registerStored();

    for (const std::uint32_t id : {0U, 5U, 0xFFFFFFFFU})
        EXPECT_EQ(deliver(id), -9874) << id;

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(HotkeyPressTest, event_foreignSignature_isTakenAsOurs)
{
    registerStored();

    EXPECT_EQ(hotKeys.deliver({{0, 1}}), 0);
    clock.advance(0);

    EXPECT_FALSE(overlay->isVisible);
}

TEST_F(HotkeyPressTest, event_noUserData_isNotHandled)
{
    registerStored();

    EXPECT_EQ(hotKeys.dispatchers.at(0).handler({{fourCharacterCode("MKPD"), 1}}, nullptr), -9874);

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(HotkeyPressTest, event_anyAction_handlerServesHotKeyPressesOfThisManager)
{
    registerStored();

    ASSERT_EQ(hotKeys.dispatchers.size(), 1U);
    EXPECT_EQ(hotKeys.dispatchers[0].spec, (EventTypeSpec{0x6B657962, 5}));
    EXPECT_EQ(hotKeys.dispatchers[0].userData, manager.get());
}

TEST_F(HotkeyPressTest, press_overlayManagerGone_isIgnored)
{
    registerStored();
    overlay.reset();

    EXPECT_EQ(hotKeys.press(shiftCommandG), 0);
    EXPECT_EQ(hotKeys.press(shiftCommandO), 0);
    clock.advance(0);

    EXPECT_EQ(journal.take(), (Lines{"mainQueue.async()", "mainQueue.async()"}));
}

TEST_F(HotkeyPressTest, press_notesManagerGone_isIgnored)
{
    registerStored();
    overlay.reset();
    notes.reset();

    EXPECT_EQ(hotKeys.press(shiftCommandDown), 0);
    EXPECT_EQ(hotKeys.press(shiftCommandUp), 0);
    clock.advance(0);

    EXPECT_EQ(journal.take(), (Lines{"mainQueue.async()", "mainQueue.async()"}));
}

TEST_F(HotkeyPressTest, press_managerHeldWeakly_overlayManagerEnds)
{
    registerStored();
    const std::weak_ptr<OverlayManager> weakOverlay = overlay;
    const std::weak_ptr<NotesManager> weakNotes = notes;

    overlay.reset();
    notes.reset();

    EXPECT_TRUE(weakOverlay.expired());
    EXPECT_TRUE(weakNotes.expired());
}

TEST_F(HotkeyPressTest, press_hotkeyManagerGoneBeforeTheNextTurn_isIgnored)
{
    registerStored();
    hotKeys.press(shiftCommandG);

    manager.reset();
    clock.advance(0);

    EXPECT_TRUE(overlay->isVisible);
}

} // namespace
} // namespace sablequill
