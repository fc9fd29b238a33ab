// SPDX-License-Identifier: MIT
#include "OverlayManager.h"

#include "NotesManager.h"
#include "OverlayEnvironment.h"
#include "PlatformFixture.h"
#include "StorageManager.h"
#include "WindowManagerFixture.h"

namespace sablequill {
namespace {

/// What the application state does for the overlay, in small.
struct FakeEnvironment final : OverlayEnvironment {
    FakeEnvironment(Journal& journal, LoginItem& loginItem)
        : journal(journal)
        , storage(std::make_shared<StorageManager>(loginItem))
    {
    }

    std::shared_ptr<StorageManager> overlayStorage() override
    {
        journal.record("environment.overlayStorage");
        return storage;
    }

    std::unique_ptr<PanelContent> makeOverlayContent() override
    {
        journal.record("environment.makeOverlayContent");
        if (whileMaking)
            whileMaking();
        return std::make_unique<FakePanelContent>();
    }

    Journal& journal;
    std::shared_ptr<StorageManager> storage;
    std::function<void()> whileMaking;
};

class OverlayManagerTest : public PlatformFixture {
protected:
    OverlayManagerTest()
    {
        QObject::connect(overlay.get(), &ObservableObject::objectWillChange, overlay.get(),
            [this] { journal.record("announce"); });
    }

    void createPanel()
    {
        overlay->ensurePanelCreated(environment);
        journal.take();
    }

    FakePanel& panel() { return *panels.panel; }

    FakeEnvironment environment{journal, loginItem};
    std::shared_ptr<WindowManager> windowManager =
        std::make_shared<WindowManager>(panels, screens, mainQueue);
    std::shared_ptr<NotesManager> notes = std::make_shared<NotesManager>(environment.storage);
    std::shared_ptr<OverlayManager> overlay =
        std::make_shared<OverlayManager>(windowManager, notes, application);
};

const Lines shown =
    Lines{fadeIn, "panel.orderFrontRegardless()"} + mirked + Lines{"mainQueue.after(0.1)"};

TEST_F(OverlayManagerTest, construct_always_visibleNotEditingAndWithoutPanel)
{
    EXPECT_TRUE(overlay->isVisible);
    EXPECT_FALSE(overlay->isEditing);
    EXPECT_EQ(overlay->windowManager, windowManager);
    EXPECT_EQ(overlay->notesManager, notes);
    EXPECT_EQ(panels.panelCount, 0);
    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(OverlayManagerTest, ensurePanelCreated_firstCall_contentThenReportsThenPanel)
{
    overlay->ensurePanelCreated(environment);

    const Lines lines = journal.take();
    ASSERT_GT(lines.size(), 4U);
    EXPECT_EQ(Lines(lines.begin(), lines.begin() + 4),
        (Lines{"environment.makeOverlayContent()", "environment.overlayStorage()",
            "screens.mainVisibleFrame()",
            "panels.makePanel([510 310 420 280], 136, 2, false, true, false)"}));
    EXPECT_NE(panel().content, nullptr);
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(OverlayManagerTest, ensurePanelCreated_fromTwoViewsAndStartUp_onePanel)
{
    createPanel();

    overlay->ensurePanelCreated(environment);
    overlay->ensurePanelCreated(environment);

    EXPECT_EQ(panels.panelCount, 1);
    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(OverlayManagerTest, ensurePanelCreated_againWhileContentIsMade_onePanel)
{
    environment.whileMaking = [this] { overlay->ensurePanelCreated(environment); };

    overlay->ensurePanelCreated(environment);

    EXPECT_EQ(panels.panelCount, 1);
}

TEST_F(OverlayManagerTest, onFrameChanged_eachReport_isSavedAtOnce)
{
    createPanel();

    for (const double x : {10.0, 11.0, 12.0}) {
        panel().move(x, 20);
        EXPECT_EQ(StorageManager(loginItem).settings.overlayFrame, (OverlayFrame{x, 20, 420, 280}));
        EXPECT_EQ(environment.storage->settings.overlayFrame, (OverlayFrame{x, 20, 420, 280}));
    }
}

TEST_F(OverlayManagerTest, onFrameChanged_nobodyElseHoldsTheStorage_savesStill)
{
    createPanel();
    notes.reset();
    overlay.reset();
    const std::weak_ptr<StorageManager> storage = std::exchange(environment.storage, nullptr);

    panel().move(10, 20);
    EXPECT_EQ(StorageManager(loginItem).settings.overlayFrame, (OverlayFrame{10, 20, 420, 280}));
    EXPECT_FALSE(storage.expired());

    windowManager.reset();
    EXPECT_TRUE(storage.expired());
}

TEST_F(OverlayManagerTest, showOverlay_panel_windowFirstThenTheFlag)
{
    createPanel();

    overlay->showOverlay();

    EXPECT_EQ(journal.take(), shown + Lines{"announce()"});
    EXPECT_TRUE(overlay->isVisible);
}

TEST_F(OverlayManagerTest, hideOverlay_shown_flagAtOnceAndPanelAfterTheFade)
{
    createPanel();
    overlay->showOverlay();
    clock.advance(1);
    journal.take();

    overlay->hideOverlay();

    EXPECT_EQ(journal.take(), (Lines{fadeOut, "announce()"}));
    EXPECT_FALSE(overlay->isVisible);
    EXPECT_TRUE(panel().isVisible());
    clock.advance(0.22);
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(OverlayManagerTest, showAndHide_noPanel_onlyTheFlagChanges)
{
    overlay->hideOverlay();
    EXPECT_FALSE(overlay->isVisible);
    overlay->showOverlay();
    EXPECT_TRUE(overlay->isVisible);

    EXPECT_EQ(journal.take(), (Lines{"announce()", "announce()"}));
    EXPECT_EQ(panels.panelCount, 0);
}

TEST_F(OverlayManagerTest, toggleOverlay_freshManager_hidesThoughNeverShown)
{
    createPanel();

    overlay->toggleOverlay();

    EXPECT_FALSE(overlay->isVisible);
    EXPECT_EQ(journal.take(), (Lines{fadeOut, "announce()"}));
}

TEST_F(OverlayManagerTest, toggleOverlay_twice_showsAgain)
{
    createPanel();
    overlay->showOverlay();

    overlay->toggleOverlay();
    clock.advance(1);
    EXPECT_FALSE(panel().isVisible());
    overlay->toggleOverlay();

    EXPECT_TRUE(overlay->isVisible);
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(OverlayManagerTest, toggleOverlay_panelGoneBehindItsBack_needsTwoToggles)
{
    createPanel();
    overlay->showOverlay();
    panel().orderOut();

    overlay->toggleOverlay();
    clock.advance(1);
    EXPECT_FALSE(panel().isVisible());
    overlay->toggleOverlay();
    EXPECT_TRUE(panel().isVisible());
}

TEST_F(OverlayManagerTest, quickOpen_visible_wholeSequence)
{
    createPanel();
    overlay->showOverlay();
    clock.advance(1);
    journal.take();

    overlay->quickOpen();

    const Lines opened{"announce()", "announce()", "application.activateIgnoringOtherApps(true)",
        "panel.makeKey()"};
    EXPECT_EQ(journal.take(), shown + opened);
    EXPECT_TRUE(overlay->isVisible);
    EXPECT_TRUE(overlay->isEditing);
    EXPECT_TRUE(panel().isKey);
}

TEST_F(OverlayManagerTest, quickOpen_hidden_showsToo)
{
    createPanel();
    overlay->hideOverlay();
    clock.advance(1);

    overlay->quickOpen();

    EXPECT_TRUE(overlay->isVisible);
    EXPECT_TRUE(panel().isVisible());
    EXPECT_TRUE(panel().isKey);
}

TEST_F(OverlayManagerTest, quickOpen_noPanel_editsAndActivatesOnly)
{
    overlay->quickOpen();

    EXPECT_EQ(journal.take(),
        (Lines{"announce()", "announce()", "application.activateIgnoringOtherApps(true)"}));
    EXPECT_TRUE(overlay->isEditing);
}

TEST_F(OverlayManagerTest, quickOpen_secondNoteSelected_notesAndSelectionStay)
{
    notes->createNote();
    notes->selectNext();
    const auto selection = notes->selectedNoteID.get();
    const auto list = notes->notes.get();

    overlay->quickOpen();

    EXPECT_EQ(notes->selectedNoteID.get(), selection);
    EXPECT_EQ(notes->notes.get(), list);
}

TEST_F(OverlayManagerTest, hideOverlay_editing_editingStays)
{
    createPanel();
    overlay->quickOpen();

    overlay->hideOverlay();
    clock.advance(1);

    EXPECT_TRUE(overlay->isEditing);
}

TEST_F(OverlayManagerTest, refreshContent_always_changesNothing)
{
    createPanel();

    overlay->refreshContent();

    EXPECT_EQ(journal.take(), Lines{});
}

} // namespace
} // namespace sablequill
