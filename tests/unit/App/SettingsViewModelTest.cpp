// SPDX-License-Identifier: MIT
#include "SettingsViewModel.h"

#include "FakeLoginItem.h"
#include "FileSizeLimit.h"
#include "StorageManager.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using Flags = KeyboardShortcutBinding::ModifierFlags;

constexpr KeyboardShortcutBinding custom{0, {1}};
constexpr OverlayFrame frame{1, 2, 300, 200};

class SettingsViewModelTest : public testing::Test {
protected:
    void start(const AppSettings& stored)
    {
        storage->settings = stored;
        viewModel = std::make_unique<SettingsViewModel>(storage);
        viewModel->onSettingsChanged = [this](const AppSettings& settings) {
            changes.push_back(settings);
        };
        QObject::connect(viewModel.get(), &ObservableObject::objectWillChange, viewModel.get(),
            [this] { ++announcements; });
    }

    /// What the next start finds in the file.
    AppSettings saved() { return StorageManager(loginItem).settings; }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
    const std::shared_ptr<StorageManager> storage = std::make_shared<StorageManager>(loginItem);
    std::unique_ptr<SettingsViewModel> viewModel;
    std::vector<AppSettings> changes;
    int announcements = 0;
};

TEST_F(SettingsViewModelTest, start_takesTheStoredValues)
{
    AppSettings stored{
        .opacity = 0.3,
        .fontSize = 20,
        .alwaysOnTop = false,
        .launchAtStartup = true,
        .mirkModeEnabled = false,
    };
    stored.shortcuts[u"quickOpen"_s] = custom;
    start(stored);
    EXPECT_EQ(viewModel->opacity, 0.3);
    EXPECT_EQ(viewModel->fontSize, 20);
    EXPECT_FALSE(viewModel->alwaysOnTop);
    EXPECT_TRUE(viewModel->launchAtStartup);
    EXPECT_FALSE(viewModel->mirkModeEnabled);
    EXPECT_EQ(viewModel->shortcuts->at(HotkeyAction::quickOpen), custom);
    EXPECT_FALSE(SettingsViewModel(storage).onSettingsChanged);
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(SettingsViewModelTest, storedBindingMissing_defaultHeldAndWritten)
{
    AppSettings stored;
    stored.shortcuts.erase(u"previousNote"_s);
    start(stored);
    EXPECT_EQ(viewModel->shortcuts->at(HotkeyAction::previousNote).displayString(), u"⇧⌘↑"_s);
    viewModel->persist();
    EXPECT_EQ(saved().shortcuts, defaultShortcuts());
}

TEST_F(SettingsViewModelTest, storedUnknownKey_droppedAndRemovedByPersist)
{
    AppSettings stored;
    stored.shortcuts[u"unheardOf"_s] = custom;
    start(stored);
    EXPECT_EQ(viewModel->shortcuts->size(), 4U);
    EXPECT_EQ(storage->settings.shortcuts.size(), 5U);
    viewModel->persist();
    EXPECT_EQ(saved().shortcuts, defaultShortcuts());
}

TEST_F(SettingsViewModelTest, everyMember_announcedAndPersisted)
{
    start({});
    viewModel->opacity = 0.1;
    viewModel->fontSize = 31.5;
    viewModel->alwaysOnTop = false;
    viewModel->launchAtStartup = true;
    viewModel->mirkModeEnabled = false;
    viewModel->shortcuts.modify([](auto& map) { map[HotkeyAction::nextNote] = custom; });
    EXPECT_EQ(announcements, 6);
    EXPECT_TRUE(changes.empty());
    EXPECT_EQ(storage->settings, AppSettings{});

    viewModel->persist();

    AppSettings expected{
        .opacity = 0.1,
        .fontSize = 31.5,
        .alwaysOnTop = false,
        .launchAtStartup = true,
        .mirkModeEnabled = false,
    };
    expected.shortcuts[u"nextNote"_s] = custom;
    EXPECT_EQ(saved(), expected);
    EXPECT_EQ(storage->settings, expected);
    EXPECT_EQ(changes, std::vector{expected});
    EXPECT_EQ(announcements, 6);
}

TEST_F(SettingsViewModelTest, persist_neverTouchesGuideAndFrame)
{
    start({});
    AppSettings changedElsewhere{.hasCompletedOnboarding = true, .overlayFrame = frame};
    storage->saveSettings(changedElsewhere);
    viewModel->opacity = 0.5;
    viewModel->persist();
    changedElsewhere.opacity = 0.5;
    EXPECT_EQ(saved(), changedElsewhere);
    EXPECT_EQ(changes, std::vector{changedElsewhere});
}

TEST_F(SettingsViewModelTest, storedSettingsChanged_viewModelKeepsItsOwn)
{
    start({});
    storage->saveSettings({.opacity = 0.2});
    EXPECT_EQ(viewModel->opacity, 0.92);
    EXPECT_EQ(announcements, 0);
}

TEST_F(SettingsViewModelTest, resetShortcuts_defaultsSavedAndToldOnce)
{
    AppSettings stored{.fontSize = 20};
    for (auto& [key, binding] : stored.shortcuts)
        binding = custom;
    start(stored);
    viewModel->resetShortcuts();
    for (const auto& [action, binding] : viewModel->shortcuts.get())
        EXPECT_EQ(binding, defaultShortcut(action));
    EXPECT_EQ(saved(), AppSettings{.fontSize = 20});
    EXPECT_EQ(changes, std::vector{AppSettings{.fontSize = 20}});
    EXPECT_EQ(announcements, 1);
}

TEST_F(SettingsViewModelTest, persist_everyTime_loginItemApplied)
{
    start({});
    viewModel->persist();
    viewModel->launchAtStartup = true;
    viewModel->persist();
    viewModel->persist();
    EXPECT_EQ(journal.take(),
        (std::vector<std::string>{
            "loginItem.unregisterItem()", "loginItem.registerItem()", "loginItem.registerItem()"}));
}

TEST_F(SettingsViewModelTest, persist_withoutCallback_saves)
{
    start({});
    viewModel->onSettingsChanged = nullptr;
    viewModel->fontSize = 24;
    viewModel->persist();
    EXPECT_EQ(saved().fontSize, 24);
}

TEST_F(SettingsViewModelTest, writeFails_callbackStillToldTheEditedValues)
{
    start({});
    viewModel->persist();
    {
        const FileSizeLimit limit(10);
        viewModel->opacity = 0.4;
        viewModel->persist();
    }
    EXPECT_EQ(changes.back().opacity, 0.4);
    EXPECT_EQ(storage->settings.opacity, 0.4);
    EXPECT_EQ(saved().opacity, 0.92);
}

TEST_F(SettingsViewModelTest, callback_seesTheStorageUpToDate)
{
    start({});
    viewModel->onSettingsChanged = [&](const AppSettings& settings) {
        EXPECT_EQ(storage->settings, settings);
    };
    viewModel->opacity = 0.7;
    viewModel->persist();
}

} // namespace
} // namespace sablequill
