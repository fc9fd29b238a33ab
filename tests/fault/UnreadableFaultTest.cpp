// SPDX-License-Identifier: MIT
#include "ArmedFault.h"
#include "StorageFault.h"

#include <cerrno>

namespace fs = std::filesystem;

namespace sablequill {
namespace {

using namespace Qt::StringLiterals;

const QByteArray unreadable = "{\"mine\": ";

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

} // namespace
} // namespace sablequill
