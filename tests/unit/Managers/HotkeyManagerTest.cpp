// SPDX-License-Identifier: MIT
#include "HotkeyManagerFixture.h"

#include <algorithm>

namespace sablequill {
namespace {

using ModifierFlags = KeyboardShortcutBinding::ModifierFlags;

/// Registering the hot keys.
using HotkeyManagerTest = HotkeyManagerFixture;

const std::string installed = "hotKeys.installEventHandler(1801812322, 5)";
const Lines defaultsRegistered{installed, "hotKeys.registerHotKey(5, 768, 1296781380, 1)",
    "hotKeys.registerHotKey(31, 768, 1296781380, 2)",
    "hotKeys.registerHotKey(125, 768, 1296781380, 3)",
    "hotKeys.registerHotKey(126, 768, 1296781380, 4)"};

TEST_F(HotkeyManagerTest, construct_always_registersNothing)
{
    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_TRUE(manager->registeredHotkeys().empty());
    EXPECT_FALSE(manager->installedEventHandler());
}

TEST_F(HotkeyManagerTest, bind_storage_registersNothing)
{
    manager->bind(storage);

    EXPECT_EQ(journal.take(), Lines{});
}

TEST_F(HotkeyManagerTest, registerHotkeys_noStorage_handlerThenDefaultsInOrder)
{
    storage->settings.shortcuts.clear();
    manager->registerHotkeys();

    EXPECT_EQ(journal.take(), defaultsRegistered);
    EXPECT_EQ(manager->registeredHotkeys(),
        (HotkeyManager::HotkeyRefs{{HotkeyAction::toggleOverlay, HotKeyRef{1}},
            {HotkeyAction::quickOpen, HotKeyRef{2}}, {HotkeyAction::nextNote, HotKeyRef{3}},
            {HotkeyAction::previousNote, HotKeyRef{4}}}));
    EXPECT_EQ(manager->installedEventHandler(), EventHandlerRef{1});
}

TEST_F(HotkeyManagerTest, registerHotkeys_twice_replacesTheHotKeysAndKeepsTheOldHandler)
{
    registerStored();

    manager->registerHotkeys();

    EXPECT_EQ(journal.take(),
        (Lines{"hotKeys.unregisterHotKey(1)", "hotKeys.unregisterHotKey(2)",
            "hotKeys.unregisterHotKey(3)", "hotKeys.unregisterHotKey(4)", installed,
            "hotKeys.registerHotKey(5, 768, 1296781380, 1)",
            "hotKeys.registerHotKey(31, 768, 1296781380, 2)",
            "hotKeys.registerHotKey(125, 768, 1296781380, 3)",
            "hotKeys.registerHotKey(126, 768, 1296781380, 4)"}));
    EXPECT_EQ(manager->registeredHotkeys().size(), 4U);
    EXPECT_EQ(hotKeys.hotKeys.size(), 4U);
    EXPECT_EQ(hotKeys.dispatchers.size(), 2U);
    EXPECT_EQ(manager->installedEventHandler(), EventHandlerRef{2});
}

TEST_F(HotkeyManagerTest, registerHotkeys_storedBindings_areUsed)
{
    storage->settings.shortcuts[rawValue(HotkeyAction::nextNote)] = {45, ModifierFlags::control};
    manager->bind(storage);

    manager->registerHotkeys();

    const Lines lines = journal.take();
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[3], "hotKeys.registerHotKey(45, 4096, 1296781380, 3)");
}

TEST_F(HotkeyManagerTest, registerHotkeys_quickOpenMissing_itsDefaultIsRegistered)
{
    storage->settings.shortcuts.erase(rawValue(HotkeyAction::quickOpen));
    manager->bind(storage);

    manager->registerHotkeys();

    EXPECT_EQ(journal.take(), defaultsRegistered);
}

TEST_F(HotkeyManagerTest, registerHotkeys_unknownKeyStored_isNeverLookedUp)
{
    storage->settings.shortcuts[QStringLiteral("ToggleOverlay")] = {0, ModifierFlags::option};
    manager->bind(storage);

    manager->registerHotkeys();

    EXPECT_EQ(journal.take(), defaultsRegistered);
}

TEST_F(HotkeyManagerTest, registerHotkeys_otherStorageBound_itsBindingsAreUsed)
{
    manager->bind(storage);
    auto other = std::make_shared<StorageManager>(loginItem);
    other->settings.shortcuts[rawValue(HotkeyAction::toggleOverlay)] = {0, ModifierFlags::option};
    manager->bind(other);

    manager->registerHotkeys();

    EXPECT_EQ(journal.take().at(1), "hotKeys.registerHotKey(0, 2048, 1296781380, 1)");
}

struct MaskRow {
    const char* name;
    std::uint32_t rawValue;
    const char* line;

    friend void PrintTo(const MaskRow& row, std::ostream* stream) { *stream << row.name; }
};

class HotkeyMaskTest : public HotkeyManagerFixture, public testing::WithParamInterface<MaskRow> { };

TEST_P(HotkeyMaskTest, registerHotkeys_modifiers_serviceMask)
{
    storage->settings.shortcuts[rawValue(HotkeyAction::toggleOverlay)] = {7, {GetParam().rawValue}};
    manager->bind(storage);

    manager->registerHotkeys();

    EXPECT_EQ(journal.take().at(1), GetParam().line);
}

INSTANTIATE_TEST_SUITE_P(Masks, HotkeyMaskTest,
    testing::Values(MaskRow{"none", 0, "hotKeys.registerHotKey(7, 0, 1296781380, 1)"},
        MaskRow{"command", 1, "hotKeys.registerHotKey(7, 256, 1296781380, 1)"},
        MaskRow{"shift", 2, "hotKeys.registerHotKey(7, 512, 1296781380, 1)"},
        MaskRow{"option", 4, "hotKeys.registerHotKey(7, 2048, 1296781380, 1)"},
        MaskRow{"control", 8, "hotKeys.registerHotKey(7, 4096, 1296781380, 1)"},
        MaskRow{"all", 15, "hotKeys.registerHotKey(7, 6912, 1296781380, 1)"},
        MaskRow{"unnamedBit", 16, "hotKeys.registerHotKey(7, 0, 1296781380, 1)"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(HotkeyManagerTest, registerHotkeys_combinationOwnedElsewhere_entryWithoutReference)
{
    hotKeys.ownedElsewhere = {{31, 768}};
    registerStored();

    EXPECT_EQ(manager->registeredHotkeys().size(), 4U);
    EXPECT_EQ(manager->registeredHotkeys().at(HotkeyAction::quickOpen), std::nullopt);
    EXPECT_TRUE(manager->registeredHotkeys().at(HotkeyAction::nextNote));

    // Without a reference there is nothing to unregister.
    manager->registerHotkeys();
    const Lines lines = journal.take();
    EXPECT_EQ(std::ranges::count_if(
                  lines, [](const auto& line) { return line.starts_with("hotKeys.unregister"); }),
        3);
}

TEST_F(HotkeyManagerTest, registerHotkeys_combinationFreedLater_isRegistered)
{
    hotKeys.ownedElsewhere = {{31, 768}};
    registerStored();
    hotKeys.ownedElsewhere.clear();

    manager->registerHotkeys();

    EXPECT_TRUE(manager->registeredHotkeys().at(HotkeyAction::quickOpen));
}

TEST_F(HotkeyManagerTest, destroy_registered_unregistersNothing)
{
    registerStored();

    manager.reset();

    EXPECT_EQ(journal.take(), Lines{});
    EXPECT_EQ(hotKeys.hotKeys.size(), 4U);
    EXPECT_EQ(hotKeys.dispatchers.size(), 1U);
}

// Changing one binding

const KeyboardShortcutBinding optionN{45, ModifierFlags::option};

TEST_F(HotkeyManagerTest, updateShortcut_storageBound_replacesTheHotKeyThenSaves)
{
    registerStored();

    manager->updateShortcut(HotkeyAction::nextNote, optionN);

    const Lines lines = journal.take();
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0], "hotKeys.unregisterHotKey(3)");
    EXPECT_EQ(lines[1], "hotKeys.registerHotKey(45, 2048, 1296781380, 3)");
    AppSettings expected;
    expected.shortcuts[QStringLiteral("nextNote")] = optionN;
    EXPECT_EQ(storage->settings, expected);
    EXPECT_EQ(StorageManager(loginItem).settings, expected);
}

TEST_F(HotkeyManagerTest, updateShortcut_noStorage_onlyRegistersAgain)
{
    manager->registerHotkeys();
    journal.take();

    manager->updateShortcut(HotkeyAction::nextNote, optionN);

    EXPECT_EQ(journal.take(),
        (Lines{"hotKeys.unregisterHotKey(3)", "hotKeys.registerHotKey(45, 2048, 1296781380, 3)"}));
    EXPECT_EQ(storage->settings, AppSettings{});
}

TEST_F(HotkeyManagerTest, updateShortcut_neverRegistered_unregistersNothing)
{
    manager->updateShortcut(HotkeyAction::nextNote, optionN);

    EXPECT_EQ(journal.take(), Lines{"hotKeys.registerHotKey(45, 2048, 1296781380, 3)"});
    EXPECT_EQ(manager->registeredHotkeys(),
        (HotkeyManager::HotkeyRefs{{HotkeyAction::nextNote, HotKeyRef{1}}}));
}

TEST_F(HotkeyManagerTest, updateShortcut_combinationOwnedElsewhere_savesStill)
{
    registerStored();
    hotKeys.ownedElsewhere = {{45, 2048}};

    manager->updateShortcut(HotkeyAction::nextNote, optionN);

    EXPECT_EQ(manager->registeredHotkeys().at(HotkeyAction::nextNote), std::nullopt);
    EXPECT_EQ(storage->settings.shortcuts.at(QStringLiteral("nextNote")), optionN);
}

} // namespace
} // namespace sablequill
