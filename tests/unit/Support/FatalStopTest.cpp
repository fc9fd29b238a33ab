// SPDX-License-Identifier: MIT
#include "FatalStop.h"

#include <gtest/gtest.h>

namespace sablequill {
namespace {

TEST(FatalStopDeathTest, message_oneLineAndExitCodeOne)
{
    EXPECT_EXIT(fatalStop("100 % gone"), testing::ExitedWithCode(1), "^100 % gone\n$");
}

} // namespace
} // namespace sablequill
