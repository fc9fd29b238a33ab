// SPDX-License-Identifier: MIT
#include "ArmedFault.h"
#include "FakeLoginItem.h"
#include "FileSizeLimit.h"
#include "NotesManager.h"
#include "StorageManager.h"
#include "TemporaryHome.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <random>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
using Names = std::vector<std::string>;

const QByteArray unreadable = "{\"mine\": ";
const Names bothFiles{"notes.json", "settings.json"};

class StorageFault : public testing::Test {
protected:
    void start()
    {
        manager.reset();
        storage.reset();
        storage = std::make_shared<StorageManager>(loginItem);
        manager = std::make_unique<NotesManager>(storage);
    }

    void startWithBothFiles()
    {
        start();
        type(u"old"_s);
        setOpacity(0.25);
        ASSERT_EQ(storedNote(), u"old"_s);
    }

    /// As the editor does after each key.
    void type(const QString& text)
    {
        manager->updateContent(manager->notes->front().id, text);
        EXPECT_EQ(manager->notes->front().content, text) << "memory lost it";
    }

    void setOpacity(double opacity)
    {
        auto settings = storage->settings;
        settings.opacity = opacity;
        storage->saveSettings(settings);
        EXPECT_EQ(storage->settings.opacity, opacity) << "memory lost it";
    }

    /// What the file holds; fails the test unless the whole of it can be read.
    QString storedNote() const
    {
        const auto notes = decodeNotes(bytesOf(home.notes()));
        EXPECT_TRUE(notes) << bytesOf(home.notes()).toStdString();
        return notes ? notes->at(0).content : QString();
    }
    double storedOpacity() const
    {
        const auto settings = decodeSettings(bytesOf(home.settings()));
        EXPECT_TRUE(settings) << bytesOf(home.settings()).toStdString();
        return settings ? settings->opacity : -1;
    }

    /// How many of the user's files hold these bytes.
    std::ptrdiff_t filesWith(const QByteArray& bytes) const
    {
        const auto names = namesIn(home.folder());
        return std::count_if(names.begin(), names.end(),
            [&](const std::string& name) { return bytesOf(home.folder() / name) == bytes; });
    }

    TemporaryHome home;
    Journal journal;
    FakeLoginItem loginItem{journal};
    std::shared_ptr<StorageManager> storage;
    std::unique_ptr<NotesManager> manager;
};

class SaveFault : public StorageFault, public testing::WithParamInterface<Fault> { };

TEST_P(SaveFault, save_callFails_oldFilesOrNewOnesAndTheNextSaveBringsAll)
{
    for (int passing = 0; passing < 4; ++passing) {
        SCOPED_TRACE(passing);
        startWithBothFiles();
        {
            Fault fault = GetParam();
            fault.passing = passing;
            const ArmedFault armed(sablequillFaultPlan(), home.path(), fault);
            type(u"new"_s);
            const QString note = storedNote();
            EXPECT_TRUE(note == u"old" || note == u"new") << note.toStdString();
            setOpacity(0.5);
            const double opacity = storedOpacity();
            EXPECT_TRUE(opacity == 0.25 || opacity == 0.5) << opacity;
            EXPECT_TRUE(passing > 0 || armed.failed() > 0) << "the fault never struck";
        }
        setOpacity(0.75);
        EXPECT_EQ(storedNote(), u"new"_s);
        EXPECT_EQ(storedOpacity(), 0.75);
        EXPECT_EQ(namesIn(home.folder()), bothFiles);
    }
}

TEST_P(SaveFault, end_callFailedBefore_bringsAll)
{
    startWithBothFiles();
    {
        const ArmedFault armed(sablequillFaultPlan(), home.path(), GetParam());
        type(u"new"_s);
        setOpacity(0.5);
    }
    manager.reset();
    storage.reset();
    EXPECT_EQ(storedNote(), u"new"_s);
    EXPECT_EQ(storedOpacity(), 0.5);
}

INSTANTIATE_TEST_SUITE_P(Rows, SaveFault,
    testing::Values(Fault{FaultyCall::create, ENOSPC}, Fault{FaultyCall::create, EACCES},
        Fault{FaultyCall::create, EROFS}, Fault{FaultyCall::create, EMFILE},
        Fault{FaultyCall::create, EDQUOT, 1}, Fault{FaultyCall::create, EINTR, 3},
        Fault{FaultyCall::write, ENOSPC}, Fault{FaultyCall::write, EIO},
        Fault{FaultyCall::write, EIO, 1}, Fault{FaultyCall::write, EINTR, 3},
        Fault{FaultyCall::write, FaultPlan::shortWrite}, Fault{FaultyCall::write, EFBIG},
        Fault{FaultyCall::sync, EIO}, Fault{FaultyCall::sync, ENOSPC},
        Fault{FaultyCall::sync, EIO, 1}, Fault{FaultyCall::sync, EINTR, 3},
        Fault{FaultyCall::rename, EACCES}, Fault{FaultyCall::rename, ENOSPC},
        Fault{FaultyCall::rename, EIO}, Fault{FaultyCall::rename, EIO, 1},
        Fault{FaultyCall::close, EIO}, Fault{FaultyCall::close, EINTR},
        Fault{FaultyCall::lock, ENOLCK}, Fault{FaultyCall::lock, EINTR, 3}));

/// A full disk would be written to twice for each key.
TEST_F(StorageFault, save_callFails_isTriedOnceByEachSave)
{
    startWithBothFiles();
    for (const auto call :
        {FaultyCall::create, FaultyCall::write, FaultyCall::sync, FaultyCall::rename}) {
        const Fault fault{call, ENOSPC};
        SCOPED_TRACE(testing::Message() << fault);
        const ArmedFault armed(sablequillFaultPlan(), home.path(), fault);
        type(u"new"_s);
        EXPECT_EQ(armed.failed(), 1);
        setOpacity(0.5);
        EXPECT_EQ(armed.failed(), 2);
    }
}

TEST_F(StorageFault, save_folderRemoved_isMadeAgainByTheSameSave)
{
    startWithBothFiles();
    fs::remove_all(home.folder());
    type(u"new"_s);
    EXPECT_EQ(storedNote(), u"new"_s);
    fs::remove_all(home.folder());
    setOpacity(0.5);
    EXPECT_EQ(storedOpacity(), 0.5);
    EXPECT_EQ(modeOf(home.folder()), 0700U);
}

TEST_F(StorageFault, save_folderRemovedAndCannotBeMade_isMadeUpForByTheNextSave)
{
    startWithBothFiles();
    fs::remove_all(home.folder());
    {
        const ArmedFault armed(sablequillFaultPlan(), home.path(), {FaultyCall::mkdir, ENOSPC});
        type(u"new"_s);
        EXPECT_GT(armed.failed(), 0) << "the fault never struck";
    }
    setOpacity(0.5);
    EXPECT_EQ(storedNote(), u"new"_s);
    EXPECT_EQ(storedOpacity(), 0.5);
}

TEST_F(StorageFault, save_temporaryFileCannotBeRemoved_nextStartRemovesIt)
{
    startWithBothFiles();
    {
        const FileSizeLimit limit(1);
        const ArmedFault armed(sablequillFaultPlan(), home.path(), {FaultyCall::unlink, EIO});
        type(u"new"_s);
        EXPECT_GT(armed.failed(), 0) << "the fault never struck";
    }
    EXPECT_EQ(storedNote(), u"old"_s);
    EXPECT_GT(namesIn(home.folder()).size(), bothFiles.size());
    type(u"newer"_s);
    start();
    EXPECT_EQ(manager->notes->front().content, u"newer"_s);
    EXPECT_EQ(namesIn(home.folder()), bothFiles);
}

/// What happens while the bytes of files that could not be read are put aside.
class KeepFault : public StorageFault, public testing::WithParamInterface<Fault> { };

TEST_P(KeepFault, save_unreadableFiles_bytesAreNeverGone)
{
    for (int passing = 0; passing < 4; ++passing) {
        SCOPED_TRACE(passing);
        fs::remove_all(home.folder());
        writeFile(home.notes(), unreadable);
        writeFile(home.settings(), unreadable);
        start();
        {
            Fault fault = GetParam();
            fault.passing = passing;
            const ArmedFault armed(sablequillFaultPlan(), home.path(), fault);
            type(u"new"_s);
            EXPECT_GE(filesWith(unreadable), 2);
            setOpacity(0.5);
            EXPECT_GE(filesWith(unreadable), 2);
            EXPECT_TRUE(passing > 0 || armed.failed() > 0) << "the fault never struck";
        }
        setOpacity(0.75);
        EXPECT_EQ(storedNote(), u"new"_s);
        EXPECT_EQ(storedOpacity(), 0.75);
        EXPECT_EQ(filesWith(unreadable), 2);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, KeepFault,
    testing::Values(Fault{FaultyCall::link, EPERM}, Fault{FaultyCall::link, EMLINK},
        Fault{FaultyCall::link, ENOSPC, 1}, Fault{FaultyCall::chmod, EPERM},
        Fault{FaultyCall::chmod, EIO, 1}, Fault{FaultyCall::create, ENOSPC},
        Fault{FaultyCall::write, ENOSPC}, Fault{FaultyCall::sync, EIO},
        Fault{FaultyCall::rename, EIO}, Fault{FaultyCall::close, EIO}));

/// The same where a second name is not possible, and the bytes are copied.
class CopyFault : public StorageFault, public testing::WithParamInterface<Fault> {
protected:
    CopyFault()
    {
        writeFile(elsewhere, unreadable);
        fs::create_directories(home.folder());
        fs::create_symlink(elsewhere, home.notes());
    }
    ~CopyFault() override { fs::remove(elsewhere); }

    const fs::path elsewhere = "/dev/shm/sablequill-fault-" + std::to_string(::getpid());
};

TEST_P(CopyFault, save_unreadableFileElsewhere_bytesAreNeverGone)
{
    start();
    {
        const ArmedFault armed(sablequillFaultPlan(), home.path(), GetParam());
        type(u"new"_s);
        EXPECT_GE(filesWith(unreadable), 1);
        EXPECT_GT(armed.failed(), 0) << "the fault never struck";
    }
    setOpacity(0.75);
    EXPECT_EQ(storedNote(), u"new"_s);
    EXPECT_EQ(filesWith(unreadable), 1);
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.json"), unreadable);
}

INSTANTIATE_TEST_SUITE_P(Rows, CopyFault,
    testing::Values(Fault{FaultyCall::create, ENOSPC}, Fault{FaultyCall::create, EINTR, 1},
        Fault{FaultyCall::write, ENOSPC}, Fault{FaultyCall::write, EIO, 1},
        Fault{FaultyCall::write, EINTR, 3}, Fault{FaultyCall::write, FaultPlan::shortWrite},
        Fault{FaultyCall::sync, EIO}, Fault{FaultyCall::sync, EINTR, 3}));

class LoadFault : public StorageFault, public testing::WithParamInterface<Fault> { };

TEST_P(LoadFault, start_filesCannotBeReadThisTime_defaultsAndTheBytesAreKept)
{
    startWithBothFiles();
    const QByteArray notes = bytesOf(home.notes());
    const QByteArray settings = bytesOf(home.settings());
    {
        const ArmedFault armed(sablequillFaultPlan(), home.path(), GetParam());
        start();
        EXPECT_EQ(manager->notes->front().title, u"Welcome"_s);
        EXPECT_EQ(storage->settings, AppSettings{});
        EXPECT_GT(armed.failed(), 0) << "the fault never struck";
    }
    type(u"new"_s);
    setOpacity(0.5);
    EXPECT_EQ(bytesOf(home.folder() / "notes.unreadable.json"), notes);
    EXPECT_EQ(bytesOf(home.folder() / "settings.unreadable.json"), settings);
    EXPECT_EQ(storedNote(), u"new"_s);
}

INSTANTIATE_TEST_SUITE_P(Rows, LoadFault,
    testing::Values(Fault{FaultyCall::open, EACCES}, Fault{FaultyCall::open, EMFILE},
        Fault{FaultyCall::open, EIO}, Fault{FaultyCall::read, EIO}));

TEST_F(StorageFault, start_interrupted_readsAllTheSame)
{
    for (const auto call : {FaultyCall::open, FaultyCall::read}) {
        startWithBothFiles();
        const ArmedFault armed(sablequillFaultPlan(), home.path(), {call, EINTR, 3});
        start();
        EXPECT_EQ(armed.failed(), 3);
        EXPECT_EQ(manager->notes->front().content, u"old"_s);
        EXPECT_EQ(storage->settings.opacity, 0.25);
    }
}

Fault randomFault(std::mt19937& random)
{
    constexpr std::array calls{FaultyCall::create, FaultyCall::write, FaultyCall::sync,
        FaultyCall::rename, FaultyCall::close, FaultyCall::lock, FaultyCall::unlink,
        FaultyCall::mkdir};
    constexpr std::array errors{ENOSPC, EIO, EACCES, EROFS};
    const auto below = [&](std::size_t end) { return random() % end; };
    return {calls.at(below(calls.size())), errors.at(below(errors.size())),
        below(3) == 0 ? FaultPlan::always : static_cast<int>(below(4)), static_cast<int>(below(5))};
}

TEST_F(StorageFault, saves_manyRandomFaults_fileNeverGoesBackAndEndsUpToDate)
{
    constexpr unsigned seed = 20261121;
    std::mt19937 random(seed);
    startWithBothFiles();
    int newest = 0;
    type(QString::number(newest));
    int onDisk = newest;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(testing::Message() << "seed " << seed << ", round " << round);
        {
            const Fault fault = randomFault(random);
            const ArmedFault armed(sablequillFaultPlan(), home.path(), fault);
            type(QString::number(++newest));
            setOpacity(newest / 10'000.0);
        }
        const int stored = storedNote().toInt();
        ASSERT_GE(stored, onDisk);
        ASSERT_LE(stored, newest);
        onDisk = stored;
        if (round % 10 == 0) {
            setOpacity(1);
            ASSERT_EQ(storedNote().toInt(), newest);
        }
    }
    start();
    EXPECT_EQ(namesIn(home.folder()), bothFiles) << "left after a start";
}

} // namespace
} // namespace sablequill
