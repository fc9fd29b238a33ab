// SPDX-License-Identifier: MIT
#include "StorageManager.h"

#include "FakeLoginItem.h"
#include "FileSizeLimit.h"
#include "TemporaryHome.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <limits>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using Names = std::vector<std::string>;

constexpr OverlayFrame frame{10, 20, 300, 200};

class StorageSettings : public testing::Test {
protected:
    /// What the next start of the program finds.
    AppSettings load() { return StorageManager(loginItem).settings; }
    QJsonObject savedObject() { return QJsonDocument::fromJson(bytesOf(home.settings())).object(); }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
};

TEST_F(StorageSettings, noFile_defaultsWithoutWriting)
{
    EXPECT_EQ(load(), AppSettings{});
    EXPECT_FALSE(fs::exists(home.settings()));
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(StorageSettings, saved_readBackEqual)
{
    const AppSettings settings{
        .opacity = 0.3,
        .hasCompletedOnboarding = true,
        .overlayFrame = frame,
        .shortcuts = {{u"unheardOf"_s, {4294967295U, {16}}}},
    };
    StorageManager storage(loginItem);
    storage.saveSettings(settings);
    EXPECT_EQ(storage.settings, settings);
    EXPECT_EQ(load(), settings);
    EXPECT_EQ(modeOf(home.settings()), 0600U);
    EXPECT_EQ(namesIn(home.folder()), Names{"settings.json"});
}

TEST_F(StorageSettings, updateOverlayFrame_onDefaults_eightKeys)
{
    StorageManager storage(loginItem);
    storage.updateOverlayFrame(frame);
    EXPECT_EQ(storage.settings, AppSettings{.overlayFrame = frame});
    EXPECT_EQ(savedObject().keys(),
        (QStringList{u"alwaysOnTop"_s, u"fontSize"_s, u"hasCompletedOnboarding"_s,
            u"launchAtStartup"_s, u"mirkModeEnabled"_s, u"opacity"_s, u"overlayFrame"_s,
            u"shortcuts"_s}));
    EXPECT_EQ(load(), storage.settings);
}

TEST_F(StorageSettings, updateOverlayFrame_everythingElse_carriedAlong)
{
    AppSettings settings{.fontSize = 20, .launchAtStartup = true};
    settings.shortcuts[u"unheardOf"_s] = {1, {}};
    StorageManager(loginItem).saveSettings(settings);

    StorageManager storage(loginItem);
    storage.updateOverlayFrame(frame);

    settings.overlayFrame = frame;
    EXPECT_EQ(load(), settings);
}

TEST_F(StorageSettings, sameValueTwice_fileReplacedBothTimes)
{
    StorageManager storage(loginItem);
    const auto replacedFile = [&] {
        // The old file stays in existence, so that its number is not given to the new one.
        fs::remove(home.path() / "old");
        if (fs::exists(home.settings()))
            fs::create_hard_link(home.settings(), home.path() / "old");
        storage.saveSettings({});
        struct stat status = {};
        EXPECT_EQ(::stat(home.settings().c_str(), &status), 0);
        return status.st_ino;
    };
    const auto first = replacedFile();
    const auto second = replacedFile();
    const auto third = replacedFile();
    EXPECT_NE(first, second);
    EXPECT_NE(second, third);
    EXPECT_EQ(journal.take(), Names(3, "loginItem.unregisterItem()"));
}

TEST_F(StorageSettings, everySave_loginItemAsTheFlagSays)
{
    StorageManager storage(loginItem);
    storage.saveSettings({.launchAtStartup = true});
    storage.updateOverlayFrame(frame);
    storage.saveSettings({});
    EXPECT_EQ(journal.take(),
        (Names{
            "loginItem.registerItem()", "loginItem.registerItem()", "loginItem.unregisterItem()"}));
}

TEST_F(StorageSettings, loginItemRefuses_savedAllTheSame)
{
    loginItem.succeeds = false;
    StorageManager storage(loginItem);
    storage.saveSettings({.launchAtStartup = true});
    EXPECT_TRUE(storage.settings.launchAtStartup);
    EXPECT_TRUE(load().launchAtStartup);
}

TEST_F(StorageSettings, writeFails_memoryHoldsTheValueAndTheLoginItemIsLeftAlone)
{
    StorageManager storage(loginItem);
    storage.saveSettings({.opacity = 0.1});
    journal.take();
    {
        const FileSizeLimit limit(10);
        storage.saveSettings({.opacity = 0.2, .launchAtStartup = true});
    }
    EXPECT_EQ(storage.settings.opacity, 0.2);
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(load().opacity, 0.1);
    EXPECT_EQ(namesIn(home.folder()), Names{"settings.json"});
}

TEST_F(StorageSettings, writeFailed_nextWriteOfTheNotesBringsTheSettingsToo)
{
    StorageManager storage(loginItem);
    {
        const FileSizeLimit limit(10);
        storage.saveSettings({.opacity = 0.2, .launchAtStartup = true});
    }
    ASSERT_TRUE(journal.take().empty());
    storage.saveNotes({});
    EXPECT_EQ(load().opacity, 0.2);
    EXPECT_FALSE(journal.take().empty()) << "the login item follows the write";
}

TEST_F(StorageSettings, numberNotFinite_notWritten)
{
    StorageManager storage(loginItem);
    storage.saveSettings({.opacity = std::numeric_limits<double>::infinity()});
    EXPECT_EQ(storage.settings.opacity, std::numeric_limits<double>::infinity());
    EXPECT_FALSE(fs::exists(home.settings()));
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(StorageSettings, ownSettingsSaved_unharmed)
{
    StorageManager storage(loginItem);
    storage.settings.opacity = 0.4;
    storage.saveSettings(storage.settings);
    EXPECT_EQ(load(), AppSettings{.opacity = 0.4});
}

TEST_F(StorageSettings, requiredKeyMissing_allDefaultsAndTheNextSaveKeepsTheBytes)
{
    QJsonObject object =
        QJsonDocument::fromJson(*encodeSettings({.opacity = 0.1, .hasCompletedOnboarding = true}))
            .object();
    object.remove(u"hasCompletedOnboarding"_s);
    const QByteArray bytes = QJsonDocument(object).toJson();
    writeFile(home.settings(), bytes);

    StorageManager storage(loginItem);
    EXPECT_EQ(storage.settings, AppSettings{});
    EXPECT_EQ(namesIn(home.folder()), Names{"settings.json"});
    storage.updateOverlayFrame(frame);
    storage.updateOverlayFrame({});

    EXPECT_EQ(load(), AppSettings{.overlayFrame = OverlayFrame{}});
    EXPECT_EQ(namesIn(home.folder()), (Names{"settings.json", "settings.unreadable.json"}));
    EXPECT_EQ(bytesOf(home.folder() / "settings.unreadable.json"), bytes);
}

TEST_F(StorageSettings, folderInPlaceOfTheFile_defaultsAndSavesDropped)
{
    fs::create_directories(home.settings());
    StorageManager storage(loginItem);
    EXPECT_EQ(storage.settings, AppSettings{});
    storage.saveSettings({.opacity = 0.2});
    EXPECT_TRUE(fs::is_directory(home.settings()));
    EXPECT_EQ(storage.settings.opacity, 0.2);
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(StorageSettings, readable_nothingIsKept)
{
    writeFile(home.settings(), *encodeSettings({.opacity = 0.1}));
    StorageManager storage(loginItem);
    storage.updateOverlayFrame(frame);
    EXPECT_EQ(namesIn(home.folder()), Names{"settings.json"});
}

} // namespace
} // namespace sablequill
