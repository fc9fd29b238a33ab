// SPDX-License-Identifier: MIT
#include "StorageFault.h"
#include "ArmedFault.h"
#include "FileSizeLimit.h"

#include <array>
#include <cerrno>
#include <random>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;
const std::vector<std::string> bothFiles{"notes.json", "settings.json"};

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

TEST_F(StorageFault, writeUnsaved_saveFailedBefore_bringsAllOnce)
{
    startWithBothFiles();
    {
        const ArmedFault armed(sablequillFaultPlan(), home.path(), {FaultyCall::write, ENOSPC});
        type(u"new"_s);
        setOpacity(0.5);
    }
    storage->writeUnsaved();
    EXPECT_EQ(storedNote(), u"new"_s);
    EXPECT_EQ(storedOpacity(), 0.5);
    const ArmedFault armed(sablequillFaultPlan(), home.path(), {FaultyCall::create, EIO});
    storage->writeUnsaved();
    EXPECT_EQ(armed.failed(), 0) << "nothing is left to write";
}

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
