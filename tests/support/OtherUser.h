// SPDX-License-Identifier: MIT
#pragma once

#include <grp.h>
#include <sys/prctl.h>
#include <unistd.h>

/// Skips the test where it may not act as another user.
#define SABLEQUILL_NEEDS_OTHER_USER()                                                              \
    if (::geteuid() != 0)                                                                          \
    GTEST_SKIP() << "only root can act as another user"

namespace sablequill {

/// "nobody" wherever we run.
inline constexpr uid_t otherUser = 65534;

/// Gives up every right of root; for child processes.
inline bool becomeOtherUser()
{
    // The kernel hides /proc/self from whoever was root before, but not from a real other user.
    return ::setgroups(0, nullptr) == 0 && ::setgid(otherUser) == 0 && ::setuid(otherUser) == 0
        && ::prctl(PR_SET_DUMPABLE, 1) == 0;
}

} // namespace sablequill
