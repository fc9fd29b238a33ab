// SPDX-License-Identifier: MIT
#include "AutostartLoginItem.h"

#include "AutostartEntry.h"
#include "FileSizeLimit.h"
#include "ScopedVariable.h"
#include "TemporaryHome.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <vector>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

/// Which file it is, and when its bytes and its place were last changed.
std::vector<long> traceOf(const fs::path& file)
{
    struct stat status = {};
    EXPECT_EQ(::lstat(file.c_str(), &status), 0);
    return {static_cast<long>(status.st_ino), status.st_mtim.tv_sec, status.st_mtim.tv_nsec,
        status.st_ctim.tv_sec, status.st_ctim.tv_nsec};
}

class AutostartLoginItemTest : public testing::Test {
protected:
    const TemporaryHome home;
    const ScopedVariable configuration{"XDG_CONFIG_HOME", home.path() / "config"};
    const fs::path folder = home.path() / "config/autostart";
    const fs::path file = folder / "io.github.sablequill.Sablequill.desktop";
    const fs::path program = "/usr/bin/sablequill";
    const QByteArray entry = autostartEntry(program);
    AutostartLoginItem item{program};
};

TEST_F(AutostartLoginItemTest, registerItem_makesTheEntryForTheUserAlone)
{
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(bytesOf(file), entry);
    EXPECT_EQ(namesIn(folder), std::vector<std::string>{file.filename()});
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(file), 0600U);
}

TEST_F(AutostartLoginItemTest, registerItem_thisProgram)
{
    AutostartLoginItem running;
    EXPECT_TRUE(running.registerItem());
    const QString path = QCoreApplication::applicationFilePath();
    EXPECT_EQ(bytesOf(file), autostartEntry(path.toStdString()));
}

TEST_F(AutostartLoginItemTest, registerItem_configurationFolderIsOfNoUse_inHome)
{
    const fs::path inHome = home.path() / ".config/autostart" / file.filename();
    for (const std::optional<QByteArray>& value : {std::optional<QByteArray>(),
             std::optional<QByteArray>(""), std::optional<QByteArray>("config")}) {
        const ScopedVariable variable("XDG_CONFIG_HOME", value);
        AutostartLoginItem other(program);
        EXPECT_TRUE(other.registerItem());
        EXPECT_EQ(bytesOf(inHome), entry);
        EXPECT_TRUE(other.unregisterItem());
        EXPECT_FALSE(fs::exists(inHome));
    }
    EXPECT_FALSE(fs::exists(folder));
}

TEST_F(AutostartLoginItemTest, noPlaceForIt_bothFail)
{
    const ScopedVariable variable("XDG_CONFIG_HOME");
    const ScopedVariable noHome("HOME");
    AutostartLoginItem nowhere(program);
    EXPECT_FALSE(nowhere.registerItem());
    EXPECT_FALSE(nowhere.unregisterItem());
}

TEST_F(AutostartLoginItemTest, registerItem_again_doesNotTouchTheEntry)
{
    ASSERT_TRUE(item.registerItem());
    const std::vector<long> trace = traceOf(file);
    const std::vector<long> folderTrace = traceOf(folder);
    for (int save = 0; save < 100; ++save)
        EXPECT_TRUE(item.registerItem());
    EXPECT_TRUE(AutostartLoginItem(program).registerItem());
    EXPECT_EQ(traceOf(file), trace);
    EXPECT_EQ(traceOf(folder), folderTrace);
}

TEST_F(AutostartLoginItemTest, registerItem_anythingElseIsThere_replaced)
{
    QByteArray disabled = entry;
    disabled.replace("enabled=true", "enabled=false");
    const std::vector<QByteArray> others = {
        "",
        entry + "Hidden=true\n",
        disabled,
        entry.chopped(1),
        entry + '\n',
        autostartEntry("/opt/elsewhere/sablequill"),
        QByteArray(3'000'000, '\0'),
    };
    for (const QByteArray& other : others) {
        writeFile(file, other);
        EXPECT_TRUE(item.registerItem());
        EXPECT_EQ(bytesOf(file), entry);
    }
}

TEST_F(AutostartLoginItemTest, registerItem_folderIsThere_keptAsItIs)
{
    writeFile(folder / "other.desktop", "somebody else's");
    fs::permissions(folder, fs::perms(0755));
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(modeOf(folder), 0755U);
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_EQ(namesIn(folder), std::vector<std::string>{"other.desktop"});
}

TEST_F(AutostartLoginItemTest, registerItem_entryIsALink_whatItLeadsToIsReplaced)
{
    const fs::path target = home.path() / "dotfiles/entry";
    writeFile(target, "old");
    fs::create_directories(folder);
    fs::create_symlink(target, file);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(bytesOf(target), entry);
    EXPECT_TRUE(fs::is_symlink(file));

    const std::vector<long> trace = traceOf(target);
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(traceOf(target), trace);

    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(fs::is_symlink(file));
    EXPECT_EQ(bytesOf(target), entry);
}

TEST_F(AutostartLoginItemTest, registerItem_noFolderCanBeMade_fails)
{
    writeFile(folder, "a file");
    EXPECT_FALSE(item.registerItem());
    EXPECT_EQ(bytesOf(folder), "a file");
    EXPECT_TRUE(item.unregisterItem()) << "there is no entry";
    EXPECT_EQ(bytesOf(folder), "a file");
}

TEST_F(AutostartLoginItemTest, registerItem_noRoom_failsAndTheOldEntryStays)
{
    writeFile(file, "old");
    {
        const FileSizeLimit limit(100);
        EXPECT_FALSE(item.registerItem());
    }
    EXPECT_EQ(bytesOf(file), "old");
    EXPECT_EQ(namesIn(folder), std::vector<std::string>{file.filename()});
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(bytesOf(file), entry);
}

TEST_F(AutostartLoginItemTest, entryIsAFolder_bothFail)
{
    fs::create_directories(file);
    EXPECT_FALSE(item.registerItem());
    EXPECT_FALSE(item.unregisterItem());
    EXPECT_TRUE(fs::is_directory(file));
}

TEST_F(AutostartLoginItemTest, unregisterItem_removesTheEntry)
{
    ASSERT_TRUE(item.registerItem());
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_TRUE(namesIn(folder).empty());
    EXPECT_TRUE(item.registerItem());
    EXPECT_EQ(bytesOf(file), entry);
}

TEST_F(AutostartLoginItemTest, unregisterItem_nothingIsThere_succeedsAndMakesNothing)
{
    EXPECT_TRUE(item.unregisterItem());
    EXPECT_FALSE(fs::exists(home.path() / "config"));
}

TEST_F(AutostartLoginItemTest, construction_removesWhatAKilledProcessLeft)
{
    const std::string stale = "." + file.filename().native() + ".a1B2c3.tmp";
    writeFile(folder / stale, "half an ent");
    writeFile(folder / ".other.desktop.a1B2c3.tmp", "somebody else's");
    const AutostartLoginItem next(program);
    EXPECT_EQ(namesIn(folder), std::vector<std::string>{".other.desktop.a1B2c3.tmp"});
}

} // namespace
} // namespace sablequill
