// SPDX-License-Identifier: MIT
#include "AppState.h"

#include "FakePanelContent.h"
#include "HotkeyManager.h"
#include "NotesManager.h"
#include "OverlayManager.h"
#include "PlatformFixture.h"
#include "SettingsViewModel.h"
#include "StorageManager.h"
#include "WindowManager.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace sablequill {
namespace {

using Lines = std::vector<std::string>;

const Lines hotKeysRegistered{"hotKeys.installEventHandler(1801812322, 5)",
    "hotKeys.registerHotKey(5, 768, 1296781380, 1)",
    "hotKeys.registerHotKey(31, 768, 1296781380, 2)",
    "hotKeys.registerHotKey(125, 768, 1296781380, 3)",
    "hotKeys.registerHotKey(126, 768, 1296781380, 4)"};

class AppStateTest : public PlatformFixture {
protected:
    std::unique_ptr<AppState> start()
    {
        return std::make_unique<AppState>(platform, [this](AppState& appState) {
            journal.record("makeContent");
            contentState = &appState;
            return std::make_unique<FakePanelContent>();
        });
    }

    /// What an earlier run left in settings.json.
    void save(const AppSettings& settings)
    {
        StorageManager(loginItem).saveSettings(settings);
        journal.take();
    }

    void removeSavedKey(const char* key)
    {
        QJsonObject settings = QJsonDocument::fromJson(bytesOf(home.settings())).object();
        ASSERT_FALSE(settings.take(QLatin1String(key)).isUndefined());
        writeFile(home.settings(), QJsonDocument(settings).toJson());
    }

    AppSettings savedSettings() { return StorageManager(loginItem).settings; }
    FakePanel& panel() { return *panels.panel; }

    AppState* contentState = nullptr;
};

// Start

TEST_F(AppStateTest, construct_firstRun_onlyTheDefaultHotKeysReachTheDesktop)
{
    const auto appState = start();

    EXPECT_EQ(journal.take(), hotKeysRegistered);
    EXPECT_EQ(panels.panelCount, 0);
}

TEST_F(AppStateTest, construct_firstRun_onboardingDefaultsAndSelectedWelcomeNote)
{
    const auto appState = start();

    EXPECT_TRUE(appState->showOnboarding);
    EXPECT_EQ(appState->currentSettings.get(), AppSettings{});
    const auto& notes = appState->notesManager->notes.get();
    ASSERT_EQ(notes.size(), 1U);
    EXPECT_EQ(notes[0].title, QStringLiteral("Welcome"));
    EXPECT_EQ(appState->notesManager->selectedNoteID.get(), notes[0].id);
}

TEST_F(AppStateTest, construct_onboardingCompletedBefore_notShown)
{
    AppSettings settings;
    settings.hasCompletedOnboarding = true;
    save(settings);

    const auto appState = start();

    EXPECT_FALSE(appState->showOnboarding);
    EXPECT_EQ(appState->currentSettings.get(), settings);
}

TEST_F(AppStateTest, construct_storedSettingsLackAKey_runsOnAllDefaults)
{
    for (const char* key : {"alwaysOnTop", "fontSize", "hasCompletedOnboarding", "launchAtStartup",
             "mirkModeEnabled", "opacity", "shortcuts"}) {
        AppSettings settings;
        settings.hasCompletedOnboarding = true;
        settings.opacity = 0.5;
        settings.shortcuts[QStringLiteral("quickOpen")] = {
            45, KeyboardShortcutBinding::ModifierFlags::option};
        save(settings);
        removeSavedKey(key);

        const auto appState = start();

        EXPECT_TRUE(appState->showOnboarding) << key;
        EXPECT_EQ(appState->currentSettings.get(), AppSettings{}) << key;
        EXPECT_EQ(journal.take(), hotKeysRegistered) << key;
    }
}

TEST_F(AppStateTest, construct_storedBindings_areRegistered)
{
    AppSettings settings;
    settings.shortcuts[QStringLiteral("quickOpen")] = {
        45, KeyboardShortcutBinding::ModifierFlags::option};
    save(settings);

    const auto appState = start();

    EXPECT_EQ(journal.take().at(2), "hotKeys.registerHotKey(45, 2048, 1296781380, 2)");
}

TEST_F(AppStateTest, construct_managers_shareWhatTheyAreMadeFrom)
{
    const auto appState = start();

    EXPECT_EQ(appState->overlayManager->windowManager, appState->windowManager);
    EXPECT_EQ(appState->overlayManager->notesManager, appState->notesManager);
    EXPECT_EQ(appState->overlayStorage(), appState->storageManager);
}

TEST_F(AppStateTest, construct_storedSettings_areThereBeforeThePanel)
{
    AppSettings settings;
    settings.opacity = 0.3;
    settings.overlayFrame = OverlayFrame{1, 2, 300, 200};
    save(settings);
    const auto appState = start();

    appState->overlayManager->ensurePanelCreated(*appState);

    EXPECT_EQ(panel().alpha(), 0.3);
    EXPECT_EQ(panel().frame(), (Rect{1, 2, 300, 200}));
}

// Bootstrap

TEST_F(AppStateTest, bootstrap_firstCall_createsThePanelAndShowsIt)
{
    const auto appState = start();
    journal.take();

    appState->bootstrap();

    EXPECT_EQ(journal.take(),
        (Lines{"makeContent()", "screens.mainVisibleFrame()",
            "panels.makePanel([510 310 420 280], 136, 2, false, true, false)",
            "panel.setAttributes()", "panel.setDelegate(delegate)", "panel.setContent(content)",
            "panel.setAlpha(0.92)", "panel.setLevel(3)", "panel.setMovableByWindowBackground(true)",
            "panel.setDidEndLiveResize(observer)", "panel.animateAlpha(0.92, 0.22, easeInEaseOut)",
            "panel.orderFrontRegardless()", "panel.setLevel(3)", "panel.setCollectionBehavior(337)",
            "panel.setSharingType(0)", "panel.setLevel(3)", "mainQueue.after(0.1)"}));
    EXPECT_EQ(contentState, appState.get());
    EXPECT_TRUE(appState->windowManager->isOverlayVisible());
}

TEST_F(AppStateTest, bootstrap_twice_onePanelShownOnce)
{
    const auto appState = start();
    appState->bootstrap();
    appState->overlayManager->hideOverlay();
    clock.advance(1);
    journal.take();

    appState->bootstrap();

    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_EQ(panels.panelCount, 1);
    EXPECT_FALSE(appState->windowManager->isOverlayVisible());
}

TEST_F(AppStateTest, bootstrap_panelMoved_frameIsSavedAndCurrentSettingsStay)
{
    const auto appState = start();
    appState->bootstrap();

    panel().move(7, 8);

    EXPECT_EQ(savedSettings().overlayFrame, (OverlayFrame{7, 8, 420, 280}));
    EXPECT_EQ(appState->currentSettings.get(), AppSettings{});
}

// Onboarding

TEST_F(AppStateTest, completeOnboarding_otherSettingsChangedMeanwhile_onlyTheFlagChanges)
{
    const auto appState = start();
    AppSettings expected;
    expected.opacity = 0.5;
    expected.overlayFrame = OverlayFrame{1, 2, 300, 200};
    appState->storageManager->saveSettings(expected);

    appState->completeOnboarding();

    expected.hasCompletedOnboarding = true;
    EXPECT_EQ(savedSettings(), expected);
    EXPECT_EQ(appState->storageManager->settings, expected);
    EXPECT_FALSE(appState->showOnboarding);
}

TEST_F(AppStateTest, completeOnboarding_always_leavesCurrentSettingsAndThePanelAlone)
{
    const auto appState = start();

    appState->completeOnboarding();

    EXPECT_EQ(appState->currentSettings.get(), AppSettings{});
    EXPECT_EQ(panels.panelCount, 0);
}

TEST_F(AppStateTest, completeOnboarding_restart_notShownAgain)
{
    start()->completeOnboarding();

    EXPECT_FALSE(start()->showOnboarding);
}

TEST_F(AppStateTest, completeOnboarding_saveFails_hiddenForThisRunOnly)
{
    const auto appState = start();
    std::filesystem::create_directories(home.settings() / "occupied");

    appState->completeOnboarding();

    EXPECT_FALSE(appState->showOnboarding);
    EXPECT_TRUE(start()->showOnboarding);
}

// Settings

TEST_F(AppStateTest, onSettingsChanged_panel_publishesOnceAndRestyles)
{
    const auto appState = start();
    appState->bootstrap();
    clock.advance(1);
    journal.take();
    QObject::connect(appState.get(), &ObservableObject::objectWillChange, appState.get(),
        [&] { journal.record("announce"); });
    appState->settingsViewModel->opacity = 0.5;
    appState->settingsViewModel->persist();

    const Lines lines = journal.take();
    const auto announcement = std::ranges::find(lines, "announce()");
    EXPECT_EQ(Lines(announcement, lines.end()),
        (Lines{"announce()", "panel.setAlpha(0.5)", "panel.setLevel(3)",
            "panel.setMovableByWindowBackground(true)", "panel.setLevel(3)",
            "panel.setCollectionBehavior(337)", "panel.setSharingType(0)", "panel.setLevel(3)"}));
    EXPECT_EQ(appState->currentSettings->opacity, 0.5);
    EXPECT_EQ(savedSettings().opacity, 0.5);
}

TEST_F(AppStateTest, onSettingsChanged_value_isAppliedAndNotSaved)
{
    const auto appState = start();
    AppSettings settings;
    settings.fontSize = 30;

    appState->settingsViewModel->onSettingsChanged(settings);

    EXPECT_EQ(appState->currentSettings.get(), settings);
    EXPECT_EQ(appState->storageManager->settings, AppSettings{});
    EXPECT_EQ(savedSettings(), AppSettings{});
}

TEST_F(AppStateTest, onSettingsChanged_stateGone_doesNothing)
{
    auto appState = start();
    appState->bootstrap();
    clock.advance(1);
    const auto viewModel = appState->settingsViewModel;
    const auto windowManager = appState->windowManager;
    appState.reset();
    journal.take();

    viewModel->onSettingsChanged({});

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(AppStateTest, release_viewModelHasTheCallback_stateEnds)
{
    auto appState = start();
    const std::weak_ptr<SettingsViewModel> viewModel = appState->settingsViewModel;
    const std::weak_ptr<WindowManager> windowManager = appState->windowManager;

    appState.reset();

    EXPECT_TRUE(viewModel.expired());
    EXPECT_TRUE(windowManager.expired());
}

// Hot keys

TEST_F(AppStateTest, hotKey_pressedAfterBootstrap_togglesTheOverlay)
{
    const auto appState = start();
    appState->bootstrap();

    EXPECT_EQ(hotKeys.press({5, 768}), 0);
    clock.advance(1);

    EXPECT_FALSE(appState->overlayManager->isVisible);
    EXPECT_FALSE(panel().isVisible());
}

TEST_F(AppStateTest, updateShortcut_anyAction_viewModelKeepsItsCopy)
{
    const auto appState = start();
    const KeyboardShortcutBinding binding{45, KeyboardShortcutBinding::ModifierFlags::option};

    appState->hotkeyManager->updateShortcut(HotkeyAction::nextNote, binding);

    EXPECT_EQ(savedSettings().shortcuts.at(QStringLiteral("nextNote")), binding);
    EXPECT_EQ(appState->settingsViewModel->shortcuts->at(HotkeyAction::nextNote),
        defaultShortcut(HotkeyAction::nextNote));
}

} // namespace
} // namespace sablequill
