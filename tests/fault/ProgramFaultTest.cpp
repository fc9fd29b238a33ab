// SPDX-License-Identifier: MIT
#include "ArmedFault.h"
#include "FaultyProgramTest.h"
#include "PlanFile.h"

#include <cerrno>

namespace sablequill {
namespace {

/// The program with the library of faults before its C library.
class ProgramFaultTest : public FaultyProgramTest {
protected:
    Environment environment() const override
    {
        auto environment = FaultyProgramTest::environment();
        environment["LD_PRELOAD"] = SABLEQUILL_FAULTY_CALLS;
        environment[FaultPlan::variable] = planFile;
        return environment;
    }

    const std::string planFile = user.path() / "faults";
    PlanFile plan{planFile};
};

TEST_P(ProgramFaultTest, type_savesFail_goesOnAndTheNextKeyBringsAll)
{
    constexpr std::array faults{Fault{FaultyCall::create, ENOSPC}, Fault{FaultyCall::create, EROFS},
        Fault{FaultyCall::write, ENOSPC}, Fault{FaultyCall::write, EIO},
        Fault{FaultyCall::sync, EIO}, Fault{FaultyCall::rename, EACCES}};
    startEditing("kept");
    for (const Fault& fault : faults) {
        SCOPED_TRACE(testing::Message() << fault);
        const QByteArray before = notesBytes();
        {
            const ArmedFault armed(plan.get(), user.storageFolder(), fault);
            typeUnsaved("xy");
            EXPECT_GE(armed.failed(), 2);
            EXPECT_EQ(notesBytes(), before);
        }
        typeSaved("z");
        expectOtherNotesKept();
    }
    endProgram();
    EXPECT_EQ(names(), bothFiles());
}

TEST_P(ProgramFaultTest, type_callsAreInterruptedOrDoneInPart_savesAllTheSame)
{
    constexpr std::array faults{Fault{FaultyCall::write, FaultPlan::shortWrite},
        Fault{FaultyCall::write, EINTR, 5}, Fault{FaultyCall::sync, EINTR, 5},
        Fault{FaultyCall::create, EIO, 1}, Fault{FaultyCall::close, EIO},
        Fault{FaultyCall::lock, ENOLCK}};
    startEditing("kept");
    for (const Fault& fault : faults) {
        SCOPED_TRACE(testing::Message() << fault);
        const ArmedFault armed(plan.get(), user.storageFolder(), fault);
        typeSaved("xyz");
        EXPECT_GE(armed.failed(), 1);
        expectOtherNotesKept();
    }
    endProgram();
    EXPECT_EQ(names(), bothFiles());
}

TEST_P(ProgramFaultTest, terminate_savesFailed_endBringsAll)
{
    startEditing("kept");
    {
        const ArmedFault armed(plan.get(), user.storageFolder(), {FaultyCall::sync, EIO});
        typeUnsaved("xy");
    }
    endProgram();
    expectSaved(0, typed);
    expectOtherNotesKept();
}

INSTANTIATE_WITHOUT_MANAGER(ProgramFaultTest);

} // namespace
} // namespace sablequill
